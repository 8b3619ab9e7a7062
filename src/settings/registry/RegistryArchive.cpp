#include "settings/registry/RegistryArchive.h"

#include "settings/registry/RegistryTree.h"

namespace ardo {

namespace {

class Writer {
public:
    void byte(std::uint8_t b) { out.push_back(static_cast<char>(b)); }
    void word(std::uint16_t w) { byte(w & 0xFF), byte(w >> 8); }
    void dword(std::uint32_t d) { word(d & 0xFFFF), word(d >> 16); }
    // Counts below 0xFFFF take two bytes; larger ones are marked and take four more.
    void count(size_t n) {
        if (n < 0xFFFF) return word(static_cast<std::uint16_t>(n));
        word(0xFFFF);
        dword(static_cast<std::uint32_t>(n));
    }
    std::string out;
};

class Reader {
public:
    explicit Reader(std::string_view b) : bytes(b) {}
    bool byte(std::uint8_t& b) {
        if (pos >= bytes.size()) return false;
        b = static_cast<std::uint8_t>(bytes[pos++]);
        return true;
    }
    bool word(std::uint16_t& w) {
        std::uint8_t lo, hi;
        if (!byte(lo) || !byte(hi)) return false;
        w = static_cast<std::uint16_t>(lo | (hi << 8));
        return true;
    }
    bool dword(std::uint32_t& d) {
        std::uint16_t lo, hi;
        if (!word(lo) || !word(hi)) return false;
        d = lo | (static_cast<std::uint32_t>(hi) << 16);
        return true;
    }
    bool count(size_t& n) {
        std::uint16_t w;
        if (!word(w)) return false;
        if (w != 0xFFFF) return n = w, true;
        std::uint32_t d;
        if (!dword(d)) return false;
        return n = d, true;
    }
    bool take(size_t n, std::string_view& piece) {
        if (bytes.size() - pos < n) return false;
        piece = bytes.substr(pos, n);
        pos += n;
        return true;
    }
    bool atEnd() const { return pos == bytes.size(); }

private:
    std::string_view bytes;
    size_t pos = 0;
};

// A UTF-16 text: the marker 0xFF 0xFFFE, then its length in code units (one byte, or 0xFF
// and a word, or 0xFF, 0xFFFF and a double word), then the units.
void storeText(Writer& w, const std::string& utf8) {
    std::string units = textToRegData(utf8);
    units.resize(units.size() - 2);
    const size_t length = units.size() / 2;
    w.byte(0xFF);
    w.word(0xFFFE);
    if (length < 0xFF) {
        w.byte(static_cast<std::uint8_t>(length));
    } else if (length < 0xFFFE) {
        w.byte(0xFF);
        w.word(static_cast<std::uint16_t>(length));
    } else {
        w.byte(0xFF);
        w.word(0xFFFF);
        w.dword(static_cast<std::uint32_t>(length));
    }
    w.out += units;
}

bool loadText(Reader& r, std::string& utf8) {
    std::uint8_t b;
    std::uint16_t w;
    if (!r.byte(b) || b != 0xFF || !r.word(w) || w != 0xFFFE || !r.byte(b)) return false;
    size_t length = b;
    if (b == 0xFF) {
        if (!r.word(w)) return false;
        length = w;
        if (w == 0xFFFF) {
            std::uint32_t d;
            if (!r.dword(d)) return false;
            length = d;
        }
    }
    std::string_view units;
    if (!r.take(length * 2, units)) return false;
    utf8 = regDataToText(std::string(units) + std::string(2, '\0'));
    return true;
}

}  // namespace

std::string storeArchive(const std::vector<std::string>& texts) {
    Writer w;
    w.count(texts.size());
    for (const auto& t : texts) storeText(w, t);
    return w.out;
}

std::string storeArchive(const std::vector<std::uint32_t>& numbers) {
    Writer w;
    w.count(numbers.size());
    for (std::uint32_t n : numbers) w.dword(n);
    return w.out;
}

std::optional<std::vector<std::string>> loadTextArchive(std::string_view bytes) {
    Reader r(bytes);
    size_t n;
    if (!r.count(n)) return std::nullopt;
    std::vector<std::string> texts;
    for (size_t i = 0; i < n; ++i) {
        std::string t;
        if (!loadText(r, t)) return std::nullopt;
        texts.push_back(std::move(t));
    }
    if (!r.atEnd()) return std::nullopt;
    return texts;
}

std::optional<std::vector<std::uint32_t>> loadNumberArchive(std::string_view bytes) {
    Reader r(bytes);
    size_t n;
    if (!r.count(n) || bytes.size() - (n < 0xFFFF ? 2 : 6) != n * 4) return std::nullopt;
    std::vector<std::uint32_t> numbers(n);
    for (auto& number : numbers) r.dword(number);
    return numbers;
}

}  // namespace ardo
