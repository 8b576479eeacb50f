// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/CodePages.h"

#include "platform/AsciiCase.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <iconv.h>
#include <numeric>
#include <utility>

namespace vexlator::platform {

namespace {

/// Unicode code points of the bytes 0x80 to 0x9F; all other bytes of Windows-1252 are their own code point.
constexpr std::array<char16_t, 32> windows1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// The Windows-1252 byte of a code point, or -1.
int Windows1252Byte(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<int>(c);
    const auto* found = std::find(windows1252High.begin(), windows1252High.end(), c);
    return found == windows1252High.end() ? -1 : 0x80 + static_cast<int>(found - windows1252High.begin());
}

/// Returns the name if it is a plain name: iconv gives blanks, slashes and empty names a meaning.
std::string NameForIconv(std::string_view name) {
    auto isPartOfName = [](unsigned char c) { return std::isalnum(c) || c == '-' || c == '_' || c == '.'; };
    auto begin = std::find_if(name.begin(), name.end(), isPartOfName);
    auto end = std::find_if_not(begin, name.end(), isPartOfName);
    return std::all_of(end, name.end(), [](unsigned char c) { return std::isspace(c); })
               ? std::string(begin, end)
               : "";
}

/// Character sets of MapInfo files that are not numbers, in capitals.
constexpr std::array<std::pair<std::string_view, std::string_view>, 16> mapNames = {{
    {"NEUTRAL", "CP1252"},
    {"WINDOWSLATIN1", "CP1252"},
    {"WINDOWSLATIN2", "CP1250"},
    {"WINDOWSCYRILLIC", "CP1251"},
    {"WINDOWSGREEK", "CP1253"},
    {"WINDOWSTURKISH", "CP1254"},
    {"WINDOWSHEBREW", "CP1255"},
    {"WINDOWSARABIC", "CP1256"},
    {"WINDOWSBALTICRIM", "CP1257"},
    {"WINDOWSVIETNAMESE", "CP1258"},
    {"WINDOWSTHAI", "CP874"},
    {"WINDOWSJAPANESE", "CP932"},
    {"WINDOWSSIMPCHINESE", "CP936"},
    {"WINDOWSKOREAN", "CP949"},
    {"WINDOWSTRADCHINESE", "CP950"},
    {"PACKEDEUCJAPAESE", "EUC-JP"},  // spelled as in these files
}};

bool IsDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// iconv's name for the number of a code page. Files that claim ISO 8859-1 really hold Windows-1252, which
/// has characters where ISO 8859-1 has control codes. No text of a map contains control codes.
std::string NumberedPage(const std::string& number) {
    if (number == "65001") return "UTF-8";
    if (!number.starts_with("8859") || number.size() == 4) return "CP" + number;
    return number == "88591" ? "CP1252" : "ISO-8859-" + number.substr(4);
}

/// iconv's name for a spelling found in GIS files; "" for an impossible name.
std::string IconvName(std::string_view name) {
    constexpr std::size_t longest = 40;
    std::string key;
    for (char c : name)
        if (std::isalnum(static_cast<unsigned char>(c))) key += c;
    if (key.empty() || key.size() > longest) return "";
    key = UpperAscii(key);
    if (key == "UTF8") return "UTF-8";
    for (const auto& [spelling, page] : mapNames)
        if (key == spelling) return std::string(page);
    for (std::string_view prefix :
         {"", "ANSI", "OEM", "WINDOWS", "MSDOS", "CODEPAGE", "CP", "DOS", "IBM", "ISO"})
        if (key.starts_with(prefix) && IsDigits(key.substr(prefix.size())))
            return NumberedPage(key.substr(prefix.size()));
    return NameForIconv(name);
}

}  // namespace

void AppendUtf8(std::string& target, char32_t character) {
    constexpr unsigned char leads[] = {0, 0xC0, 0xE0, 0xF0};
    int more = character < 0x80 ? 0 : character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    target += static_cast<char>(leads[more] | (character >> (6 * more)));
    while (more-- > 0) target += static_cast<char>(0x80 | ((character >> (6 * more)) & 0x3F));
}

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
        AppendUtf8(target, value >= 0x80 && value < 0xA0 ? windows1252High[value - 0x80U] : value);
    }
}

std::size_t CountCharacters(std::string_view utf8) {
    return utf8.size() -
           static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), ContinuesCharacter));
}

std::string_view FirstCharacters(std::string_view utf8, std::size_t most) {
    std::size_t size = 0;
    for (std::size_t count = 0; size < utf8.size(); ++size)
        if (!ContinuesCharacter(utf8[size]) && ++count > most) break;
    return utf8.substr(0, size);
}

std::string AsUtf8(std::string_view bytes) {
    return IsUtf8(bytes) ? std::string(bytes) : Utf8FromWindows1252(bytes);
}

std::string DecodeText(std::string_view bytes) {
    return AsUtf8(WithoutByteOrderMark(bytes));
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
    // No character has more than three bytes after its first. Text with more is not UTF-8 and is cut as
    // bytes.
    std::size_t end = most, least = most - std::min<std::size_t>(most, 3);
    while (end > least && ContinuesCharacter(text[end])) --end;
    return text.substr(0, ContinuesCharacter(text[end]) ? most : end);
}

struct Decoder::Iconv {
    explicit Iconv(iconv_t opened) : handle(opened) {}
    ~Iconv() { ::iconv_close(handle); }
    Iconv(const Iconv&) = delete;
    Iconv& operator=(const Iconv&) = delete;

    /// False, with nothing appended, if the bytes are invalid in this encoding.
    bool Append(std::string& target, std::string_view bytes) {
        constexpr auto failed = static_cast<std::size_t>(-1);
        std::size_t before = target.size();
        std::size_t inLeft = bytes.size(), outLeft = bytes.size() * 4 + 16;
        target.resize(before + outLeft);
        char* in = const_cast<char*>(bytes.data());
        char* out = target.data() + before;
        ::iconv(handle, nullptr, nullptr, nullptr, nullptr);
        // The second call writes a letter that waits for a following accent.
        bool good = ::iconv(handle, &in, &inLeft, &out, &outLeft) != failed &&
                    ::iconv(handle, nullptr, nullptr, &out, &outLeft) != failed;
        target.resize(good ? static_cast<std::size_t>(out - target.data()) : before);
        return good;
    }
    /// False for encodings whose bytes below 128 are not all ASCII, or that switch to other letters.
    bool KeepsAscii() {
        std::string ascii(128, '\0'), decoded;
        std::iota(ascii.begin(), ascii.end(), '\0');
        ascii += "\x1B$B0!\x1B(B";
        return Append(decoded, ascii) && decoded == ascii;
    }

    iconv_t handle;
};

Decoder::Decoder(std::string_view name) {
    std::string iconvName = IconvName(name);
    if (iconvName == "CP1252") return;
    if (iconvName == "UTF-8") {
        kind_ = Kind::Utf8;
        return;
    }
    known_ = false;
    if (iconvName.empty()) return;
    iconv_t handle = ::iconv_open("UTF-8", iconvName.c_str());
    if (handle == reinterpret_cast<iconv_t>(-1)) return;
    known_ = true;
    kind_ = Kind::Iconv;
    iconv_ = std::make_unique<Iconv>(handle);
    keepsAscii_ = iconv_->KeepsAscii();
}

Decoder::~Decoder() = default;
Decoder::Decoder(Decoder&&) noexcept = default;
Decoder& Decoder::operator=(Decoder&&) noexcept = default;

void Decoder::Append(std::string& target, std::string_view bytes) {
    bool same = (keepsAscii_ && IsAscii(bytes)) || (kind_ == Kind::Utf8 && platform::IsUtf8(bytes));
    if (same) {
        target += bytes;
        return;
    }
    if (kind_ == Kind::Iconv && iconv_->Append(target, bytes)) return;
    if (kind_ != Kind::Windows1252) ++misfits_;
    AppendUtf8FromWindows1252(target, bytes);
}

}  // namespace vexlator::platform
