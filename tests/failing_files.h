// Test support: a FileSystem that passes everything on to another one, except that the n-th
// operation of one kind fails, as on a full disk or in a folder that turned read-only.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "files/file_system.h"

namespace brennik::testing {

enum class FileOp { Read, Write, Replace, Remove };

// Passes every operation on and counts them by kind, except that the `nth` operation of kind
// `op` fails (none with nth 0); a failing write first lands half of its bytes, as on a disk
// that fills up.
class FailingFiles final : public FileSystem {
public:
    explicit FailingFiles(FileSystem& inner, FileOp op = FileOp::Read, int nth = 0)
        : inner_(inner), op_(op), nth_(nth) {}

    int Count(FileOp op) const { return counts_[static_cast<std::size_t>(op)]; }

    std::string CurrentFolder() const override { return inner_.CurrentFolder(); }
    bool SetCurrentFolder(const std::string& folder) override {
        return inner_.SetCurrentFolder(folder);
    }
    std::string AppFolder() const override { return inner_.AppFolder(); }
    bool ReadFile(const std::string& name, std::string& contents) override {
        return !Fails(FileOp::Read) && inner_.ReadFile(name, contents);
    }
    bool WriteFile(const std::string& name, std::string_view contents) override {
        if (Fails(FileOp::Write)) {
            inner_.WriteFile(name, contents.substr(0, contents.size() / 2));
            return false;
        }
        return inner_.WriteFile(name, contents);
    }
    bool ReplaceFile(const std::string& from, const std::string& to) override {
        return !Fails(FileOp::Replace) && inner_.ReplaceFile(from, to);
    }
    bool RemoveFile(const std::string& name) override {
        return !Fails(FileOp::Remove) && inner_.RemoveFile(name);
    }
    bool FileExists(const std::string& name) const override { return inner_.FileExists(name); }

private:
    bool Fails(FileOp op) { return ++counts_[static_cast<std::size_t>(op)] == nth_ && op == op_; }

    FileSystem& inner_;
    FileOp op_;
    int nth_;
    std::array<int, 4> counts_{};
};

}  // namespace brennik::testing
