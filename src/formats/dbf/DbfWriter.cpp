// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/dbf/DbfWriter.h"

#include "formats/Bytes.h"
#include "platform/CodePages.h"
#include "util/Text.h"

#include <algorithm>
#include <cstring>

namespace vexlator::formats {

namespace {

constexpr std::size_t fixedHeader = 32;
constexpr std::size_t descriptorSize = 32;
constexpr char endOfFields = 0x0D;
constexpr char endOfFile = 0x1A;

std::string_view WithoutQuotes(std::string_view value) {
    if (value.size() >= 2 && value.front() == '\'' && value.back() == '\'')
        return value.substr(1, value.size() - 2);
    return value;
}

std::string Encoded(std::string_view text, DbfWriter::Encoding encoding) {
    return encoding == DbfWriter::Encoding::Utf8 ? std::string(text) : platform::Windows1252FromUtf8(text);
}

std::string_view Cut(std::string_view bytes, std::size_t width, DbfWriter::Encoding encoding) {
    return encoding == DbfWriter::Encoding::Utf8 ? platform::CutUtf8(bytes, width) : bytes.substr(0, width);
}

}  // namespace

DbfWriter::DbfWriter(platform::OutputFile& file, std::vector<DbfColumn> columns, Encoding encoding,
                     std::uint64_t records)
    : file_(file), columns_(std::move(columns)), encoding_(encoding) {
    if (columns_.size() > mostColumns) columns_.resize(mostColumns);
    for (const DbfColumn& column : columns_) {
        offsets_.push_back(recordLength_);
        recordLength_ += static_cast<std::size_t>(column.width);
    }
    cut_.resize(columns_.size());
    file_.Write(std::string(fixedHeader, '\0'));
    WriteDescriptors();
    CheckRoomFor(records);
}

void DbfWriter::CheckRoomFor(std::uint64_t records) const {
    if (file_.Size() + records * recordLength_ + 1 > largestTableFile)
        throw platform::WriteError(file_.Name(), "the table would be larger than 2 GB");
}

void DbfWriter::WriteDescriptors() {
    for (const DbfColumn& column : columns_) {
        std::string descriptor(descriptorSize, '\0');
        std::string name = Encoded(util::ReplaceAll(column.name, " ", "_"), encoding_);
        name = Cut(name, 10, encoding_);
        std::fill_n(descriptor.begin(), 11, ' ');
        descriptor.replace(0, name.size() + 1, name.c_str(), name.size() + 1);
        descriptor[11] = column.type;
        descriptor[16] = static_cast<char>(column.width);
        descriptor[17] = static_cast<char>(column.decimals);
        file_.Write(descriptor);
    }
    file_.Write(std::string_view(&endOfFields, 1));
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
    std::string encoded;
    if (encoding_ == Encoding::Windows1252) value = encoded = Encoded(value, encoding_);
    if (value.size() > width) {
        value = Cut(value, width, encoding_);
        ++cut_[column];
    }
    if (!value.empty()) std::memcpy(record_ + offsets_[column], value.data(), value.size());
}

void DbfWriter::EndRecord() {
    file_.Advance(recordLength_);
    ++records_;
}

std::string DbfWriter::Header() const {
    std::string header(fixedHeader, '\0');
    header[0] = 3;
    // A fixed date: the same drawing gives the same bytes on every day.
    header[1] = 99;
    header[2] = 10;
    header[3] = 12;
    PutLittle(header.data() + 4, records_);
    PutLittle(header.data() + 8,
              static_cast<std::uint16_t>(fixedHeader + descriptorSize * columns_.size() + 1));
    PutLittle(header.data() + 10, static_cast<std::uint16_t>(recordLength_));
    return header;
}

void DbfWriter::Finish() {
    file_.Write(std::string_view(&endOfFile, 1));
    file_.WriteAt(0, Header());
}

}  // namespace vexlator::formats
