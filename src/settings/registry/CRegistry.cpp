#include "settings/registry/CRegistry.h"

#include "settings/registry/RegistryArchive.h"

namespace ardo {

namespace {

constexpr const char* kRootPrefix = "HKEY_";

std::vector<std::string> joined(std::vector<std::string> names, const std::vector<std::string>& more) {
    names.insert(names.end(), more.begin(), more.end());
    return names;
}

}  // namespace

bool CRegistry::parsePath(std::string& text, RegRoot& root) {
    if (!text.starts_with(kRootPrefix)) return false;
    const size_t slash = text.find('\\');
    const std::string rootName = text.substr(0, slash);
    for (int i = 0; i < kRegRootCount; ++i)
        if (rootName == regRootName(static_cast<RegRoot>(i))) root = static_cast<RegRoot>(i);
    text = slash == std::string::npos ? std::string() : text.substr(slash + 1);
    return true;
}

bool CRegistry::keyResult(std::uint32_t error) {
    lastError_ = error;
    lastType_ = 0;
    lastSize_ = 0;
    return error == kRegOk;
}

bool CRegistry::valueResult(std::uint32_t error, std::uint32_t type, size_t size) {
    lastError_ = error;
    lastType_ = error == kRegOk ? type : 0;
    lastSize_ = error == kRegOk ? static_cast<std::uint32_t>(size) : 0;
    return error == kRegOk;
}

bool CRegistry::openKey(RegRoot root, std::vector<std::string> base, const std::string& subkey,
                        std::uint32_t access, bool createMissing) {
    std::vector<std::string> names;
    if (!splitKeyPath(subkey, names)) return keyResult(kRegBadPathname);
    names = joined(std::move(base), names);
    std::uint32_t error;
    if (createMissing) {
        error = file_->write([&](RegistryTree& tree) {
            tree.create(root, names);
            return kRegOk;
        });
    } else {
        error = file_->read([&](const RegistryTree& tree) { return tree.find(root, names) ? kRegOk : kRegFileNotFound; });
    }
    if (error != kRegOk) return keyResult(error);
    close();
    key_ = OpenKey{root, std::move(names), access};
    return keyResult(kRegOk);
}

bool CRegistry::openForReading(RegRoot root, const std::string& subkey) {
    return openKey(root, {}, subkey, kKeyRead, false);
}

bool CRegistry::openRelative(const std::string& subkey) {
    if (!key_) return keyResult(kRegInvalidHandle);
    return openKey(key_->root, key_->names, subkey, kKeyRead, false);
}

bool CRegistry::open(RegRoot root, const std::string& subkey, std::uint32_t access) {
    if (!openKey(root, {}, subkey, access, false)) return false;
    keyPath_ = subkey;
    return true;
}

bool CRegistry::create(RegRoot root, const std::string& subkey) {
    return openKey(root, {}, subkey, kKeyAllAccess, true);
}

void CRegistry::close() {
    if (key_) {
        key_.reset();
        lastError_ = kRegOk;
    }
}

bool CRegistry::setValue(const std::string& name, std::uint32_t type, std::string data) {
    if (!key_) return valueResult(kRegInvalidHandle, 0, 0);
    if (!(key_->access & kKeySetValue)) return valueResult(kRegAccessDenied, 0, 0);
    const size_t size = data.size();
    const std::uint32_t error = file_->write([&](RegistryTree& tree) {
        RegistryKey* key = tree.find(key_->root, key_->names);
        if (!key) return kRegKeyDeleted;
        key->setValue(RegistryValue{name, type, std::move(data)});
        return kRegOk;
    });
    return valueResult(error, type, size);
}

bool CRegistry::getValue(const std::string& name, std::uint32_t type, std::string& data) {
    if (!key_) return valueResult(kRegInvalidHandle, 0, 0);
    if (!(key_->access & kKeyQueryValue)) return valueResult(kRegAccessDenied, 0, 0);
    std::uint32_t foundType = 0;
    const std::uint32_t error = file_->read([&](const RegistryTree& tree) {
        const RegistryKey* key = tree.find(key_->root, key_->names);
        if (!key) return kRegKeyDeleted;
        const RegistryValue* value = key->value(name);
        if (!value) return kRegFileNotFound;
        foundType = value->type;
        data = value->data;
        return kRegOk;
    });
    if (error != kRegOk) return valueResult(error, 0, 0);
    // The value is there, but not of the type asked for.
    const bool fits = type == kRegSz ? (foundType == kRegSz || foundType == kRegExpandSz)
                                     : foundType == type && (type != kRegDword || data.size() == 4);
    if (!fits) {
        valueResult(kRegOk, foundType, data.size());
        lastError_ = kRegInvalidDatatype;
        return false;
    }
    return valueResult(kRegOk, foundType, data.size());
}

bool CRegistry::valueExists(const std::string& name) {
    if (!key_) return valueResult(kRegInvalidHandle, 0, 0);
    std::uint32_t type = 0;
    size_t size = 0;
    const std::uint32_t error = file_->read([&](const RegistryTree& tree) {
        const RegistryKey* key = tree.find(key_->root, key_->names);
        if (!key) return kRegKeyDeleted;
        const RegistryValue* value = key->value(name);
        if (!value) return kRegFileNotFound;
        type = value->type;
        size = value->data.size();
        return kRegOk;
    });
    return valueResult(error, type, size);
}

bool CRegistry::setNumber(const std::string& name, std::uint32_t value) {
    std::string data;
    for (int i = 0; i < 4; ++i) data.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
    return setValue(name, kRegDword, std::move(data));
}

bool CRegistry::setText(const std::string& name, const std::string& text) {
    return setValue(name, kRegSz, textToRegData(text));
}

bool CRegistry::setObject(const std::string& name, const std::vector<std::string>& texts) {
    return setValue(name, kRegBinary, storeArchive(texts));
}

bool CRegistry::setObject(const std::string& name, const std::vector<std::uint32_t>& numbers) {
    return setValue(name, kRegBinary, storeArchive(numbers));
}

bool CRegistry::getNumber(const std::string& name, std::uint32_t& value) {
    std::string data;
    if (!getValue(name, kRegDword, data)) return false;
    value = 0;
    for (int i = 3; i >= 0; --i) value = (value << 8) | static_cast<unsigned char>(data[i]);
    return true;
}

bool CRegistry::getText(const std::string& name, std::string& text) {
    std::string data;
    if (!getValue(name, kRegSz, data)) return false;
    text = regDataToText(data);
    return true;
}

bool CRegistry::getObject(const std::string& name, std::vector<std::string>& texts) {
    std::string data;
    if (!getValue(name, kRegBinary, data)) return false;
    auto loaded = loadTextArchive(data);
    if (!loaded) return (lastError_ = kRegInvalidDatatype), false;
    texts = std::move(*loaded);
    return true;
}

bool CRegistry::getObject(const std::string& name, std::vector<std::uint32_t>& numbers) {
    std::string data;
    if (!getValue(name, kRegBinary, data)) return false;
    auto loaded = loadNumberArchive(data);
    if (!loaded) return (lastError_ = kRegInvalidDatatype), false;
    numbers = std::move(*loaded);
    return true;
}

bool CRegistry::deleteValue(const std::string& name) {
    if (!key_) return valueResult(kRegInvalidHandle, 0, 0);
    if (!(key_->access & kKeySetValue)) return valueResult(kRegAccessDenied, 0, 0);
    const std::uint32_t error = file_->write([&](RegistryTree& tree) {
        RegistryKey* key = tree.find(key_->root, key_->names);
        if (!key) return kRegKeyDeleted;
        return key->removeValue(name) ? kRegOk : kRegFileNotFound;
    });
    return valueResult(error, 0, 0);
}

bool CRegistry::deleteKey(const std::string& subkey) {
    if (!key_) return keyResult(kRegInvalidHandle);
    std::vector<std::string> names;
    if (!splitKeyPath(subkey, names) || names.empty()) return keyResult(kRegBadPathname);
    const std::string last = names.back();
    names.pop_back();
    const std::vector<std::string> parentNames = joined(key_->names, names);
    const std::uint32_t error = file_->write([&](RegistryTree& tree) {
        RegistryKey* parent = tree.find(key_->root, parentNames);
        RegistryKey* doomed = parent ? parent->subkey(last) : nullptr;
        if (!doomed) return kRegFileNotFound;
        if (!doomed->subkeys.empty()) return kRegAccessDenied;
        std::erase_if(parent->subkeys, [doomed](const RegistryKey& k) { return &k == doomed; });
        return kRegOk;
    });
    return keyResult(error);
}

bool CRegistry::listNames(const std::string& subkey, bool subkeys, std::vector<std::string>& names) {
    if (!key_) return keyResult(kRegInvalidHandle);
    std::vector<std::string> path;
    if (!splitKeyPath(subkey, path)) return keyResult(kRegBadPathname);
    path = joined(key_->names, path);
    const std::uint32_t error = file_->read([&](const RegistryTree& tree) {
        const RegistryKey* key = tree.find(key_->root, path);
        if (!key) return kRegFileNotFound;
        if (subkeys) for (const auto& k : key->subkeys) names.push_back(k.name);
        else for (const auto& v : key->values) names.push_back(v.name);
        return kRegOk;
    });
    return keyResult(error);
}

bool CRegistry::listSubkeys(const std::string& subkey, std::vector<std::string>& names) {
    return listNames(subkey, true, names);
}

bool CRegistry::listValues(const std::string& subkey, std::vector<std::string>& names) {
    return listNames(subkey, false, names);
}

}  // namespace ardo
