// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

/// Text in memory is UTF-8. These functions convert from and to other encodings.
namespace vexlator::platform {

/// True when every byte is below 128: the text is the same in every encoding used here.
bool IsAscii(std::string_view text);
bool IsUtf8(std::string_view text);

/// Whether a byte of a UTF-8 text continues a character.
constexpr bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}
std::size_t CountCharacters(std::string_view utf8);
/// The start of a UTF-8 text that has at most `most` characters.
std::string_view FirstCharacters(std::string_view utf8, std::size_t most);

/// Appends a character, at most U+10FFFF.
void AppendUtf8(std::string& target, char32_t character);
/// Length and value of the well-formed character at the start of a text that is not empty. Length 0 if there
/// is none.
std::size_t DecodeUtf8(std::string_view text, char32_t& character);

/// The byte-order mark of UTF-8 files.
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view WithoutByteOrderMark(std::string_view bytes) {
    return bytes.starts_with(byteOrderMark) ? bytes.substr(byteOrderMark.size()) : bytes;
}

/// Converts a text of unknown encoding to UTF-8. Valid UTF-8 stays as it is; other text is read as
/// Windows-1252.
std::string AsUtf8(std::string_view bytes);
/// The same for the whole text of a file. Drops its byte-order mark.
std::string DecodeText(std::string_view bytes);

/// Windows-1252 to UTF-8. Every byte has a meaning: the five undefined bytes of the code page become the
/// control characters of the same number, as on Windows. So any text passes through unchanged.
std::string Utf8FromWindows1252(std::string_view bytes);
void AppendUtf8FromWindows1252(std::string& target, std::string_view bytes);

/// UTF-8 to Windows-1252. Characters outside it become "?", and `replaced` counts them.
std::string Windows1252FromUtf8(std::string_view text, std::uint64_t* replaced = nullptr);
bool FitsWindows1252(std::string_view text);

/// The longest start of a UTF-8 text with at most `most` bytes and whole characters.
std::string_view CutUtf8(std::string_view text, std::size_t most);

/// Decodes bytes of a named code page into UTF-8. Names are those of iconv ("CP1250", "BIG5", ...) and the
/// spellings that GIS files use ("ANSI 1252", "65001", "ISO 88591", "WindowsLatin1").
class Decoder {
public:
    /// The decoder for a name. For an unknown name, IsKnown() is false and the decoder reads Windows-1252.
    explicit Decoder(std::string_view name);
    ~Decoder();
    Decoder(Decoder&&) noexcept;
    Decoder& operator=(Decoder&&) noexcept;

    bool IsKnown() const { return known_; }
    bool IsUtf8() const { return kind_ == Kind::Utf8; }
    /// Appends the decoded text to `target`. Bytes that are invalid in this encoding are read as
    /// Windows-1252, so that nothing is lost. Misfits() counts the texts with such bytes.
    void Append(std::string& target, std::string_view bytes);
    std::string Decode(std::string_view bytes) {
        std::string text;
        Append(text, bytes);
        return text;
    }
    std::uint64_t Misfits() const { return misfits_; }

private:
    enum class Kind { Windows1252, Utf8, Iconv };
    struct Iconv;
    Kind kind_ = Kind::Windows1252;
    bool known_ = true;
    bool keepsAscii_ = true;
    std::uint64_t misfits_ = 0;
    std::unique_ptr<Iconv> iconv_;
};

}  // namespace vexlator::platform
