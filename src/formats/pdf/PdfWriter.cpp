// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/pdf/PdfWriter.h"

#include "platform/CodePages.h"
#include "platform/Utf16.h"
#include "util/Numbers.h"

#include <iterator>

namespace vexlator::formats {

namespace {

/// Says that the file holds bytes above 127, so that programs for transfer do not take it for text.
constexpr std::string_view header = "%PDF-1.7\n%\xE2\xE3\xCF\xD3\n";

}  // namespace

std::string PdfBytes(std::string_view bytes) {
    std::string text = "(";
    for (char c : bytes) {
        if (c == '(' || c == ')' || c == '\\') text += '\\';
        if (c == '\r')
            text += "\\r";
        else
            text += c;
    }
    return text + ")";
}

std::string PdfText(std::string_view text) {
    if (platform::IsAscii(text)) return PdfBytes(text);
    std::string wide = platform::Utf16FromUtf8(text), bytes = "\xFE\xFF";
    for (std::size_t i = 0; i + 1 < wide.size(); i += 2) {  // PDF has the larger byte first
        bytes += wide[i + 1];
        bytes += wide[i];
    }
    return PdfBytes(bytes);
}

std::string PdfNumber(double value, int decimals) {
    std::string text = util::FormatFixed(value, decimals);
    if (text.find('.') == std::string::npos) return text;
    text.resize(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

std::string PdfReference(int number) {
    return std::to_string(number) + " 0 R";
}

std::string PdfObjectTable::Text(std::uint64_t ownOffset, std::string_view trailer) const {
    std::string text = "xref\n";
    for (auto first = offsets_.begin(); first != offsets_.end();) {
        auto end = first;
        for (int number = first->first; end != offsets_.end() && end->first == number; ++number) ++end;
        text += std::to_string(first->first) + " " + std::to_string(std::distance(first, end)) + "\n";
        for (; first != end; ++first) {
            bool isFree = first->first == 0;
            text += util::ZeroPadded(static_cast<std::int64_t>(first->second), 10);
            text += isFree ? " 65535 f \n" : " 00000 n \n";
        }
    }
    text.append("trailer\n<< ").append(trailer).append(" >>\nstartxref\n");
    return text + std::to_string(ownOffset) + "\n%%EOF\n";
}

PdfWriter::PdfWriter(platform::OutputFile& file) : file_(file) {
    table_.Add(0, 0);
    file_.Write(header);
}

void PdfWriter::Begin(int number) {
    table_.Add(number, file_.Size());
    file_.Write(std::to_string(number) + " 0 obj\n");
}

void PdfWriter::Write(int number, std::string_view content) {
    Begin(number);
    file_.Write(content);
    file_.Write("\nendobj\n");
}

void PdfWriter::WriteStream(int number, std::string_view entries, std::string_view bytes) {
    Begin(number);
    file_.Write("<< " + std::string(entries) + " /Length " + std::to_string(bytes.size()) + " >>\nstream\n");
    file_.Write(bytes);
    file_.Write("\nendstream\nendobj\n");
}

void PdfWriter::Finish(int catalogue, int information) {
    std::uint64_t offset = file_.Size();
    file_.Write(table_.Text(offset, "/Size " + std::to_string(objects_ + 1) + " /Root " +
                                        PdfReference(catalogue) + " /Info " + PdfReference(information)));
}

}  // namespace vexlator::formats
