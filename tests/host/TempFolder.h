#pragma once
// A fresh folder under the system's temp folder for one test, removed with everything in it.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace ardo::test {

class TempFolder {
public:
    TempFolder() {
        const char* tmp = std::getenv("TMPDIR");
        std::string pattern = std::string(tmp && *tmp ? tmp : "/tmp") + "/ardo-test-XXXXXX";
        std::vector<char> name(pattern.begin(), pattern.end());
        name.push_back('\0');
        if (!::mkdtemp(name.data())) throw std::runtime_error("cannot make a temp folder");
        path_ = name.data();
    }
    ~TempFolder() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::string file(const std::string& name) const { return path_ + "/" + name; }
    const std::string& path() const { return path_; }

    // Writes bytes as they are and returns the file's path.
    std::string write(const std::string& name, const std::string& bytes) const {
        std::ofstream out(file(name), std::ios::binary);
        out << bytes;
        return file(name);
    }

    // The names of the files now in the folder.
    std::vector<std::string> names() const {
        std::vector<std::string> result;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            result.push_back(entry.path().filename().string());
        return result;
    }

private:
    std::string path_;
};

inline std::string readBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

}  // namespace ardo::test
