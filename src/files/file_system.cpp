#include "files/file_system.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace brennik {

namespace fs = std::filesystem;

DiskFileSystem::DiskFileSystem(std::string appFolder, std::string currentFolder)
    : app_(std::move(appFolder)), current_(std::move(currentFolder)) {}

bool DiskFileSystem::SetCurrentFolder(const std::string& folder) {
    std::error_code error;
    const fs::path absolute = fs::absolute(fs::path(Resolve(folder)), error);
    if (error || !fs::is_directory(absolute, error)) {
        return false;
    }
    current_ = absolute.lexically_normal().string();
    return true;
}

std::string DiskFileSystem::Resolve(const std::string& name) const {
    const fs::path path(name);
    if (path.is_absolute() || current_.empty()) {
        return name;
    }
    return (fs::path(current_) / path).string();
}

bool DiskFileSystem::ReadFile(const std::string& name, std::string& contents) {
    std::error_code error;
    if (fs::is_directory(Resolve(name), error)) {
        return false;
    }
    std::ifstream in(Resolve(name), std::ios::binary);
    if (!in) {
        return false;
    }
    contents.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return !in.bad();
}

bool DiskFileSystem::WriteFile(const std::string& name, std::string_view contents) {
    std::ofstream out(Resolve(name), std::ios::binary | std::ios::trunc);
    if (!out) {
        return false;
    }
    out.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    out.close();
    return !out.fail();
}

bool DiskFileSystem::ReplaceFile(const std::string& from, const std::string& to) {
    std::error_code error;
    fs::rename(Resolve(from), Resolve(to), error);
    return !error;
}

bool DiskFileSystem::RemoveFile(const std::string& name) {
    std::error_code error;
    fs::remove(Resolve(name), error);
    return !error;
}

bool DiskFileSystem::FileExists(const std::string& name) const {
    std::error_code error;
    return fs::is_regular_file(Resolve(name), error);
}

}  // namespace brennik
