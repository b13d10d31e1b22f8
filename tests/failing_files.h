// Test support: a FileSystem that passes everything on to another one, except that the n-th
// operation of one kind fails, as on a full disk or in a folder that turned read-only.
#pragma once

#include "files/file_system.h"

namespace brennik::testing {

enum class FileOp { Read, Write, Replace, Remove };

class FailingFiles final : public FileSystem {
public:
    FailingFiles(FileSystem& inner, FileOp op, int nth) : inner_(inner), op_(op), nth_(nth) {}

    std::string CurrentFolder() const override { return inner_.CurrentFolder(); }
    bool SetCurrentFolder(const std::string& folder) override {
        return inner_.SetCurrentFolder(folder);
    }
    std::string AppFolder() const override { return inner_.AppFolder(); }
    bool ReadFile(const std::string& name, std::string& contents) override {
        return !Fails(FileOp::Read) && inner_.ReadFile(name, contents);
    }
    bool WriteFile(const std::string& name, std::string_view contents) override {
        return !Fails(FileOp::Write) && inner_.WriteFile(name, contents);
    }
    bool ReplaceFile(const std::string& from, const std::string& to) override {
        return !Fails(FileOp::Replace) && inner_.ReplaceFile(from, to);
    }
    bool RemoveFile(const std::string& name) override {
        return !Fails(FileOp::Remove) && inner_.RemoveFile(name);
    }
    bool FileExists(const std::string& name) const override { return inner_.FileExists(name); }

private:
    bool Fails(FileOp op) { return op == op_ && ++seen_ == nth_; }

    FileSystem& inner_;
    FileOp op_;
    int nth_;
    int seen_ = 0;
};

}  // namespace brennik::testing
