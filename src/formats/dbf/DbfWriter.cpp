// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/dbf/DbfWriter.h"

#include "formats/Bytes.h"
#include "formats/dbf/DbfLayout.h"
#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "util/Text.h"
#include "util/WholeNumber.h"

#include <algorithm>
#include <cstring>

namespace vexlator::formats {

namespace {

constexpr char endOfFile = 0x1A;

std::string_view WithoutQuotes(std::string_view value) {
    if (value.size() >= 2 && value.front() == '\'' && value.back() == '\'')
        return value.substr(1, value.size() - 2);
    return value;
}

}  // namespace

DbfWriter::DbfWriter(platform::OutputFile& file, std::vector<DbfColumn> columns, Encoding encoding,
                     std::uint64_t records)
    : file_(file), columns_(std::move(columns)), encoder_(encoding) {
    if (columns_.size() > mostColumns) columns_.resize(mostColumns);
    NameColumns();
    for (const DbfColumn& column : columns_) {
        offsets_.push_back(recordLength_);
        recordLength_ += static_cast<std::size_t>(column.width);
    }
    cut_.resize(columns_.size());
    replaced_.resize(columns_.size());
    notNumbers_.resize(columns_.size());
    file_.Write(std::string(dbf::fixedHeader, '\0'));
    WriteDescriptors();
    CheckRoomFor(records);
}

void DbfWriter::CheckRoomFor(std::uint64_t records) const {
    if (file_.Size() + records * recordLength_ + 1 > largestTableFile)
        throw platform::WriteError(file_.Name(), "the table would be larger than 2 GB");
}

/// Names that fit stay unchanged, whatever the cut names become.
void DbfWriter::NameColumns() {
    std::set<std::string> taken;
    std::vector<DbfColumn*> others;
    for (DbfColumn& column : columns_) {
        column.name = util::ReplaceAll(column.name, " ", "_");
        bool fits = Cut(column.name, dbf::longestName).size() == column.name.size();
        if (!fits || !taken.insert(platform::LowerAscii(column.name)).second) others.push_back(&column);
    }
    for (DbfColumn* column : others) column->name = FreeName(taken, column->name);
}

std::string DbfWriter::FreeName(std::set<std::string>& taken, std::string_view name) const {
    std::string candidate(Cut(name, dbf::longestName));
    for (int n = 1; !taken.insert(platform::LowerAscii(candidate)).second; ++n) {
        std::string number = std::to_string(n);
        candidate = std::string(Cut(name, dbf::longestName - number.size())) + number;
    }
    return candidate;
}

/// The start of a UTF-8 text that takes at most `width` bytes in the table.
std::string_view DbfWriter::Cut(std::string_view text, std::size_t width) const {
    if (text.size() <= width) return text;
    return encoder_.Encoding() == Encoding::Utf8 ? platform::CutUtf8(text, width)
                                                 : platform::FirstCharacters(text, width);
}

void DbfWriter::WriteDescriptors() {
    for (const DbfColumn& column : columns_) {
        std::string descriptor(dbf::descriptorSize, '\0');
        std::string_view name = encoder_.Encode(column.name).substr(0, dbf::longestName);
        std::fill_n(descriptor.begin(), dbf::longestName + 1, ' ');
        *std::copy(name.begin(), name.end(), descriptor.begin()) = '\0';
        descriptor[11] = column.type;
        descriptor[16] = static_cast<char>(column.width);
        descriptor[17] = static_cast<char>(column.decimals);
        file_.Write(descriptor);
    }
    file_.Write(std::string_view(&dbf::endOfFields, 1));
}

void DbfWriter::BeginRecord() {
    CheckRoomFor(1);
    record_ = file_.Reserve(recordLength_);
    std::memset(record_, ' ', recordLength_);
}

void DbfWriter::SetField(std::size_t column, std::string_view value) {
    if (column >= columns_.size()) return;
    value = WithoutQuotes(util::Trim(value));
    auto width = static_cast<std::size_t>(columns_[column].width);
    std::string_view kept = Cut(value, width);
    if (kept.size() < value.size()) ++cut_[column];
    if (columns_[column].type == 'N' && !value.empty() && !util::IsWhollyNumber(value)) ++notNumbers_[column];
    std::uint64_t before = encoder_.Replaced();
    value = encoder_.Encode(kept).substr(0, width);
    replaced_[column] += encoder_.Replaced() - before;
    if (!value.empty()) std::memcpy(record_ + offsets_[column], value.data(), value.size());
}

void DbfWriter::EndRecord() {
    file_.Advance(recordLength_);
    ++records_;
}

std::string DbfWriter::Header() const {
    std::string header(dbf::fixedHeader, '\0');
    header[0] = 3;
    // A fixed date: the same drawing gives the same bytes on every day.
    header[1] = 99;
    header[2] = 10;
    header[3] = 12;
    PutLittle(header.data() + 4, records_);
    PutLittle(header.data() + 8,
              static_cast<std::uint16_t>(dbf::fixedHeader + dbf::descriptorSize * columns_.size() + 1));
    PutLittle(header.data() + 10, static_cast<std::uint16_t>(recordLength_));
    return header;
}

void DbfWriter::Finish() {
    file_.Write(std::string_view(&endOfFile, 1));
    file_.WriteAt(0, Header());
}

}  // namespace vexlator::formats
