// Every file the program reads or writes goes through a FileSystem. Names without a folder
// resolve against the current folder, as the program's files (last.sol, last.pro, brennik.cnf,
// the work and page files) all do, and every operation says whether it succeeded.
#pragma once

#include <string>
#include <string_view>

namespace brennik {

class FileSystem {
public:
    virtual ~FileSystem() = default;

    virtual std::string CurrentFolder() const = 0;
    virtual bool SetCurrentFolder(const std::string& folder) = 0;
    // The folder where the program keeps its files; the problem dialogs open there.
    virtual std::string AppFolder() const = 0;

    // Reads the whole file; false when it cannot be opened or read.
    virtual bool ReadFile(const std::string& name, std::string& contents) = 0;
    // Creates or empties the file and writes the contents; false on any failure.
    virtual bool WriteFile(const std::string& name, std::string_view contents) = 0;
    // Puts `from` in the place of `to` in one step, so `to` is never half written.
    virtual bool ReplaceFile(const std::string& from, const std::string& to) = 0;
    // True when the file is gone afterwards, also when it was not there.
    virtual bool RemoveFile(const std::string& name) = 0;
    virtual bool FileExists(const std::string& name) const = 0;
};

// The real disk. The current folder is held here, not in the process, so that nothing else
// can move it under the program's feet.
class DiskFileSystem final : public FileSystem {
public:
    DiskFileSystem(std::string appFolder, std::string currentFolder);

    std::string CurrentFolder() const override { return current_; }
    bool SetCurrentFolder(const std::string& folder) override;
    std::string AppFolder() const override { return app_; }
    bool ReadFile(const std::string& name, std::string& contents) override;
    bool WriteFile(const std::string& name, std::string_view contents) override;
    bool ReplaceFile(const std::string& from, const std::string& to) override;
    bool RemoveFile(const std::string& name) override;
    bool FileExists(const std::string& name) const override;

    // A name without a folder, placed in the current folder; other names as they are.
    std::string Resolve(const std::string& name) const;

private:
    std::string app_;
    std::string current_;
};

}  // namespace brennik
