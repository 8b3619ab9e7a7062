#include "help/ChmFile.h"

#include <chm_lib.h>

namespace ardo {

std::unique_ptr<ChmFile> ChmFile::open(const std::string& path) {
    const ChmLibrary* lib = helpLibrary();
    if (!lib) return nullptr;
    chmFile* handle = lib->open(path.c_str());
    if (!handle) return nullptr;
    return std::unique_ptr<ChmFile>(new ChmFile(*lib, handle));
}

ChmFile::~ChmFile() { lib_.close(handle_); }

std::optional<std::string> ChmFile::read(const std::string& inner) const {
    const std::string path = inner.starts_with("/") ? inner : "/" + inner;
    chmUnitInfo info{};
    if (lib_.resolveObject(handle_, path.c_str(), &info) != CHM_RESOLVE_SUCCESS) return std::nullopt;
    std::string bytes(static_cast<size_t>(info.length), '\0');
    if (info.length == 0) return bytes;
    const auto got = lib_.retrieveObject(handle_, &info, reinterpret_cast<unsigned char*>(bytes.data()), 0,
                                         static_cast<long long>(info.length));
    if (got != static_cast<long long>(info.length)) return std::nullopt;
    return bytes;
}

std::vector<std::string> ChmFile::files() const {
    std::vector<std::string> paths;
    lib_.enumerate(
        handle_, CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES,
        [](chmFile*, chmUnitInfo* info, void* context) {
            static_cast<std::vector<std::string>*>(context)->emplace_back(info->path);
            return CHM_ENUMERATOR_CONTINUE;
        },
        &paths);
    return paths;
}

HelpAddress splitHelpAddress(const std::string& address) {
    const size_t mark = address.find("::");
    if (mark == std::string::npos) return {address, {}};
    return {address.substr(0, mark), address.substr(mark + 2)};
}

}  // namespace ardo
