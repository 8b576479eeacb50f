// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/TextSource.h"

#include "platform/CodePages.h"
#include "util/Files.h"
#include "util/Numbers.h"

namespace vexlator::importer {

std::optional<platform::MappedFile> OpenTextSource(std::string_view path, ui::UserInterface& show) {
    auto file = util::OpenFile(path, &show);
    if (!file || !file->Bytes().empty()) return file;
    show.ShowMessage("Error Opening " + file->Name() + "\nThe file is empty");
    return std::nullopt;
}

std::string_view WithoutByteOrderMark(std::string_view text) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    return text.starts_with(mark) ? text.substr(mark.size()) : text;
}

std::string_view TextBehindMark(std::string_view bytes, std::string& decoded) {
    bool little = bytes.starts_with("\xFF\xFE");
    if (!little && !bytes.starts_with("\xFE\xFF")) return WithoutByteOrderMark(bytes);
    platform::Decoder decoder(little ? "UTF-16LE" : "UTF-16BE");
    decoded = decoder.Decode(bytes.substr(2));
    if (decoder.Misfits() > 0)
        throw platform::ReadError("", "", "its byte-order mark says UTF-16, but it is not");
    return decoded;
}

void MissingValues::Count(std::size_t values, std::uint64_t line) {
    count_ += values;
    if (count_ > most_)
        throw platform::ReadError(
            "", platform::ReadError::AtLine(line),
            "rows lack most of their columns; " + util::GroupedCount(count_) + " values are missing so far");
}

}  // namespace vexlator::importer
