// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/CodePages.h"

#include "platform/Paths.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <iconv.h>

namespace vexlator::platform {

namespace {

/// Unicode code points of the bytes 0x80 to 0x9F; all other bytes of Windows-1252 are their own code point.
constexpr std::array<char16_t, 32> windows1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendCodePoint(std::string& target, char32_t c) {
    if (c < 0x80) {
        target += static_cast<char>(c);
    } else if (c < 0x800) {
        target += static_cast<char>(0xC0 | (c >> 6));
        target += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        target += static_cast<char>(0xE0 | (c >> 12));
        target += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        target += static_cast<char>(0x80 | (c & 0x3F));
    }
}

/// Length of the well-formed UTF-8 character at the start of `text` and its code point; 0 when it is not one.
std::size_t DecodeUtf8(std::string_view text, char32_t& c) {
    auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    auto follows = [&](std::size_t i) { return i < text.size() && (byte(i) & 0xC0) == 0x80; };
    unsigned char lead = byte(0);
    if (lead < 0x80) {
        c = lead;
        return 1;
    }
    if (lead >= 0xC2 && lead < 0xE0 && follows(1)) {
        c = static_cast<char32_t>((lead & 0x1F) << 6 | (byte(1) & 0x3F));
        return 2;
    }
    if (lead >= 0xE0 && lead < 0xF0 && follows(1) && follows(2)) {
        c = static_cast<char32_t>((lead & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F));
        return c >= 0x800 && (c < 0xD800 || c > 0xDFFF) ? 3 : 0;
    }
    if (lead >= 0xF0 && lead < 0xF5 && follows(1) && follows(2) && follows(3)) {
        c = static_cast<char32_t>((lead & 0x07) << 18 | (byte(1) & 0x3F) << 12 | (byte(2) & 0x3F) << 6 |
                                  (byte(3) & 0x3F));
        return c >= 0x10000 && c <= 0x10FFFF ? 4 : 0;
    }
    return 0;
}

/// The Windows-1252 byte of a code point, or -1.
int Windows1252Byte(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<int>(c);
    const auto* found = std::find(windows1252High.begin(), windows1252High.end(), c);
    return found == windows1252High.end() ? -1 : 0x80 + static_cast<int>(found - windows1252High.begin());
}

/// iconv's name for a spelling found in GIS files: "65001", "ANSI 1252", "ISO 88591", "WindowsLatin1" ...
std::string IconvName(std::string_view name) {
    std::string key;
    for (char c : name)
        if (std::isalnum(static_cast<unsigned char>(c))) key += c;
    key = UpperAscii(key);
    if (key.starts_with("WINDOWSLATIN1")) return "CP1252";
    if (key.starts_with("WINDOWSLATIN2")) return "CP1250";
    if (key == "WINDOWSCYRILLIC") return "CP1251";
    if (key == "WINDOWSGREEK") return "CP1253";
    if (key == "WINDOWSTURKISH") return "CP1254";
    if (key == "WINDOWSHEBREW") return "CP1255";
    if (key == "WINDOWSARABIC") return "CP1256";
    if (key == "WINDOWSBALTICRIM") return "CP1257";
    if (key == "WINDOWSVIETNAMESE") return "CP1258";
    if (key == "WINDOWSTHAI") return "CP874";
    if (key == "WINDOWSJAPANESE") return "CP932";
    if (key == "WINDOWSSIMPCHINESE") return "CP936";
    if (key == "WINDOWSKOREAN") return "CP949";
    if (key == "WINDOWSTRADCHINESE") return "CP950";
    if (key.starts_with("CODEPAGE") || key.starts_with("CODEPG"))
        key = key.substr(key.find('P', 4) + (key.starts_with("CODEPAGE") ? 4 : 2));
    for (std::string_view prefix : {"ANSI", "OEM", "WINDOWS", "MSDOS", "CP", "DOS", "IBM"})
        if (key.starts_with(prefix) && key.size() > prefix.size() &&
            std::isdigit(static_cast<unsigned char>(key[prefix.size()]))) {
            key = key.substr(prefix.size());
            break;
        }
    if (key == "65001" || key == "UTF8") return "UTF-8";
    std::string iso = key.starts_with("ISO") ? key.substr(3) : key;
    if (iso.starts_with("8859") && iso.size() > 4) return "ISO-8859-" + iso.substr(4);
    if (!key.empty() && std::all_of(key.begin(), key.end(), [](unsigned char c) { return std::isdigit(c); }))
        return "CP" + key;
    return std::string(name);
}

}  // namespace

bool IsAscii(std::string_view text) {
    const char* p = text.data();
    std::size_t left = text.size();
    std::uint64_t high = 0;
    for (; left >= 8; left -= 8, p += 8) {
        std::uint64_t word;
        std::memcpy(&word, p, 8);
        high |= word;
    }
    for (; left > 0; --left, ++p) high |= static_cast<unsigned char>(*p);
    return (high & 0x8080808080808080U) == 0;
}

bool IsUtf8(std::string_view text) {
    if (IsAscii(text)) return true;
    for (char32_t c = 0; !text.empty();) {
        std::size_t length = DecodeUtf8(text, c);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

void AppendUtf8FromWindows1252(std::string& target, std::string_view bytes) {
    if (IsAscii(bytes)) {
        target += bytes;
        return;
    }
    for (char byte : bytes) {
        auto value = static_cast<unsigned char>(byte);
        AppendCodePoint(target, value >= 0x80 && value < 0xA0 ? windows1252High[value - 0x80U] : value);
    }
}

std::string Utf8FromWindows1252(std::string_view bytes) {
    std::string text;
    AppendUtf8FromWindows1252(text, bytes);
    return text;
}

std::string Windows1252FromUtf8(std::string_view text, std::uint64_t* replaced) {
    if (IsAscii(text)) return std::string(text);
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        char32_t c = 0;
        std::size_t length = DecodeUtf8(text, c);
        int byte = length == 0 ? -1 : Windows1252Byte(c);
        if (byte < 0 && replaced) ++*replaced;
        bytes += byte < 0 ? '?' : static_cast<char>(byte);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return bytes;
}

bool FitsWindows1252(std::string_view text) {
    if (IsAscii(text)) return true;
    std::uint64_t replaced = 0;
    Windows1252FromUtf8(text, &replaced);
    return replaced == 0;
}

std::string_view CutUtf8(std::string_view text, std::size_t most) {
    if (text.size() <= most) return text;
    while (most > 0 && (static_cast<unsigned char>(text[most]) & 0xC0) == 0x80) --most;
    return text.substr(0, most);
}

struct Decoder::Iconv {
    iconv_t handle;
    ~Iconv() { ::iconv_close(handle); }
};

Decoder::Decoder(std::string_view name) {
    std::string iconvName = IconvName(name);
    if (iconvName == "CP1252") return;
    if (iconvName == "UTF-8") {
        kind_ = Kind::Utf8;
        return;
    }
    iconv_t handle = ::iconv_open("UTF-8", iconvName.c_str());
    known_ = handle != reinterpret_cast<iconv_t>(-1);
    if (!known_) return;
    kind_ = Kind::Iconv;
    iconv_ = std::make_unique<Iconv>(Iconv{handle});
}

Decoder::~Decoder() = default;
Decoder::Decoder(Decoder&&) noexcept = default;
Decoder& Decoder::operator=(Decoder&&) noexcept = default;

void Decoder::Append(std::string& target, std::string_view bytes) {
    // Every encoding that tables of this field come in keeps ASCII where it is.
    if (IsAscii(bytes)) {
        target += bytes;
        return;
    }
    if (kind_ == Kind::Utf8 && platform::IsUtf8(bytes)) {
        target += bytes;
        return;
    }
    if (kind_ == Kind::Iconv) {
        std::string decoded(bytes.size() * 4, '\0');
        char* in = const_cast<char*>(bytes.data());
        char* out = decoded.data();
        std::size_t inLeft = bytes.size(), outLeft = decoded.size();
        ::iconv(iconv_->handle, nullptr, nullptr, nullptr, nullptr);
        if (::iconv(iconv_->handle, &in, &inLeft, &out, &outLeft) != static_cast<std::size_t>(-1)) {
            target.append(decoded.data(), decoded.size() - outLeft);
            return;
        }
    }
    if (kind_ != Kind::Windows1252) ++misfits_;
    AppendUtf8FromWindows1252(target, bytes);
}

}  // namespace vexlator::platform
