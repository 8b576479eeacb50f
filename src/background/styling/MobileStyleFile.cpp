// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/styling/MobileStyleFile.h"

#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "util/Files.h"
#include "util/Text.h"

#include <algorithm>
#include <stdexcept>

namespace vexlator::background {

namespace {

constexpr std::string_view neverInField(",\r\n\0", 4), neverInName("=,\r\n\0", 5);

std::size_t CommasBefore(MobileField field) {
    return static_cast<std::size_t>(field) - static_cast<std::size_t>(MobileField::Type);
}

}  // namespace

MobileStyleFile::MobileStyleFile(std::string_view bytes) {
    std::string_view text = platform::WithoutByteOrderMark(bytes);
    mark_ = bytes.substr(0, bytes.size() - text.size());
    isUtf8_ = platform::IsUtf8(text);
    for (util::LineReader lines(text); !lines.AtEnd();) {
        std::size_t begin = lines.Position();
        std::string_view line = lines.ReadTextLine();
        std::size_t end = begin + line.size();
        lines_.push_back({std::string(line), std::string(text.substr(end, lines.Position() - end))});
    }
}

std::string MobileStyleFile::Bytes() const {
    std::string bytes = mark_;
    for (const Line& line : lines_) bytes.append(line.text).append(line.end);
    return bytes;
}

bool MobileStyleFile::IsStyle(std::size_t line) const {
    return lines_[line].text.find('=') != std::string::npos;
}

MobileStyleFile::Span MobileStyleFile::Find(const std::string& text, MobileField field) const {
    std::size_t equals = std::min(text.find('='), text.size());
    if (field == MobileField::Name) return {0, equals};
    std::size_t begin = std::min(equals + 1, text.size());
    for (std::size_t commas = CommasBefore(field); commas > 0; --commas) {
        std::size_t comma = text.find(',', begin);
        if (comma == std::string::npos) return {text.size() + 1, 0};
        begin = comma + 1;
    }
    return {begin, std::min(text.find(',', begin), text.size()) - begin};
}

std::string MobileStyleFile::Field(std::size_t line, MobileField field) const {
    const std::string& text = lines_[line].text;
    Span span = Find(text, field);
    if (span.begin > text.size()) return "";
    std::string value = Decode(std::string_view(text).substr(span.begin, span.size));
    return field == MobileField::Name ? value : std::string(util::Trim(value));
}

std::string MobileStyleFile::FieldsOf(std::size_t line) const {
    const std::string& text = lines_[line].text;
    return Decode(std::string_view(text).substr(std::min(text.find('=') + 1, text.size())));
}

void MobileStyleFile::SetField(std::size_t line, MobileField field, std::string_view value) {
    if (Field(line, field) == value) return;
    bool isName = field == MobileField::Name;
    if (value.find_first_of(isName ? neverInName : neverInField) != std::string_view::npos)
        throw std::invalid_argument(isName ? "a name cannot have a comma, \"=\" or a line end"
                                           : "a field cannot have a comma or a line end");
    std::string bytes = Encode(value);
    std::string& text = lines_[line].text;
    Span span = Find(text, field);
    if (span.begin > text.size()) {
        std::size_t has = static_cast<std::size_t>(
            std::count(text.begin() + static_cast<std::ptrdiff_t>(text.find('=')), text.end(), ','));
        text.append(CommasBefore(field) - has, ',');
        span = {text.size(), 0};
    }
    text.replace(span.begin, span.size, bytes);
}

void MobileStyleFile::InsertStyle(std::size_t line, std::string_view name, std::string_view type) {
    std::string end = LineEnd();
    bool isLast = line >= lines_.size();
    if (isLast && !lines_.empty() && lines_.back().end.empty()) lines_.back().end = end;
    std::size_t at = std::min(line, lines_.size());
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), {"=", end});
    try {
        SetField(at, MobileField::Name, name);
        SetField(at, MobileField::Type, type);
    } catch (...) {
        RemoveLine(at);
        throw;
    }
}

void MobileStyleFile::RemoveLine(std::size_t line) {
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(line));
}

std::string MobileStyleFile::FaultOf(std::size_t line) const {
    constexpr std::size_t mostStyles = 256;  // a byte of an element names them
    if (line >= mostStyles) return "Features can name only the first 256 lines of the file";
    std::string name = Field(line, MobileField::Name), type = Field(line, MobileField::Type);
    if (name.empty()) return "A style needs a name";
    for (std::size_t i = 0; i < line; ++i)
        if (IsStyle(i) && platform::SameNoCase(Field(i, MobileField::Name), name))
            return "Line " + std::to_string(i + 1) + " has this name too, and comes first";
    if (type != "P" && type != "S" && type != "A") return "The type is P, S or A, in capitals";
    return "";
}

std::string MobileStyleFile::Encode(std::string_view utf8) const {
    if (isUtf8_) return std::string(utf8);
    if (!platform::FitsWindows1252(utf8))
        throw std::invalid_argument("the file is in Windows-1252, which lacks a character of this");
    return platform::Windows1252FromUtf8(utf8);
}

std::string MobileStyleFile::Decode(std::string_view bytes) const {
    return isUtf8_ ? std::string(bytes) : platform::Utf8FromWindows1252(bytes);
}

std::string MobileStyleFile::LineEnd() const {
    return lines_.empty() || lines_.front().end.empty() ? "\r\n" : lines_.front().end;
}

}  // namespace vexlator::background
