#pragma once
// A fresh folder under the system's temporary folder for one test, removed afterwards.
#include <cstdlib>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

namespace ardo::test {

class TempFolder {
public:
    TempFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "ardo-test-XXXXXX").string();
        if (!mkdtemp(pattern.data())) ADD_FAILURE() << "cannot create a temporary folder";
        path_ = pattern;
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    // A path inside the folder, as the module's string paths are given.
    std::string operator/(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

}  // namespace ardo::test
