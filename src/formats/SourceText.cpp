// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/SourceText.h"

#include "platform/CodePages.h"
#include "platform/Errors.h"
#include "util/Numbers.h"

namespace vexlator::formats {

namespace {

bool IsHighSurrogate(std::string_view bytes, std::size_t at, bool little) {
    auto high = static_cast<unsigned char>(bytes[at + (little ? 1 : 0)]);
    return high >= 0xD8 && high < 0xDC;
}

/// The end of the next piece of UTF-16 of whole characters.
std::size_t PieceEnd(std::string_view bytes, std::size_t begin, bool little) {
    constexpr std::size_t pieceSize = std::size_t{1} << 16;
    if (bytes.size() - begin <= pieceSize) return bytes.size();
    std::size_t end = begin + pieceSize;
    return IsHighSurrogate(bytes, end - 2, little) ? end - 2 : end;
}

/// The whole text is never held twice, and a line without end is never held.
std::string DecodeUtf16(std::string_view bytes, bool little) {
    platform::Decoder decoder(little ? "UTF-16LE" : "UTF-16BE");
    std::string decoded;
    decoded.reserve(bytes.size() / 2 * 3 + (std::size_t{1} << 20));  // largest possible size
    std::size_t lineBegin = 0;
    for (std::size_t begin = 0, end = 0; begin < bytes.size(); begin = end) {
        end = PieceEnd(bytes, begin, little);
        std::size_t before = decoded.size();
        decoder.Append(decoded, bytes.substr(begin, end - begin));
        if (decoder.Misfits() > 0)
            throw platform::ReadError("", "", "its byte-order mark is that of UTF-16, but it is not UTF-16");
        std::size_t lineEnd = std::string_view(decoded).substr(before).find_last_of("\r\n");
        if (lineEnd != std::string_view::npos) lineBegin = before + lineEnd + 1;
        if (decoded.size() - lineBegin > longestLine)
            throw platform::ReadError("", platform::ReadError::AtByte(begin), std::string(lineTooLong));
    }
    return decoded;
}

}  // namespace

void CheckLineLength(std::string_view text, std::uint64_t line) {
    if (text.size() > longestLine)
        throw platform::ReadError("", platform::ReadError::AtLine(line), std::string(lineTooLong));
}

std::string_view TextBehindMark(std::string_view bytes, std::string& decoded) {
    bool little = bytes.starts_with("\xFF\xFE");
    if (!little && !bytes.starts_with("\xFE\xFF")) return platform::WithoutByteOrderMark(bytes);
    return decoded = DecodeUtf16(bytes.substr(2), little);
}

void MissingValues::Count(std::size_t values, std::uint64_t line) {
    count_ += values;
    if (count_ > most_)
        throw platform::ReadError(
            "", platform::ReadError::AtLine(line),
            "rows lack most of their columns; " + util::GroupedCount(count_) + " values are missing so far");
}

}  // namespace vexlator::formats
