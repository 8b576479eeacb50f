// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/dbf/DbfTable.h"

#include "formats/Bytes.h"
#include "formats/dbf/DbfLayout.h"
#include "platform/CodePages.h"
#include "platform/Errors.h"
#include "util/Text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vexlator::formats {

using platform::ReadError;

namespace {

constexpr std::size_t nameSize = 11;

bool IsPadding(char c) {
    return c == ' ' || c == '\0';
}

std::string_view TextOf(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

DbfTable::DbfTable(std::span<const std::byte> bytes) : bytes_(bytes) {
    if (bytes.size() < dbf::fixedHeader)
        throw ReadError("", ReadError::AtByte(0),
                        "a table needs a header of 32 bytes, " + std::to_string(bytes.size()) + " are there");
    headerLength_ = LittleAt<std::uint16_t>(bytes, 8);
    recordLength_ = LittleAt<std::uint16_t>(bytes, 10);
    language_ = LittleAt<std::uint8_t>(bytes, 29);
    if (headerLength_ < dbf::fixedHeader || headerLength_ > bytes.size())
        throw ReadError("", ReadError::AtByte(8),
                        "a header of " + std::to_string(headerLength_) + " bytes announced, the file has " +
                            std::to_string(bytes.size()));
    ReadFields(headerLength_);
    if (recordLength_ > 0) recordCount_ = (bytes.size() - headerLength_) / recordLength_;
}

void DbfTable::ReadFields(std::size_t headerLength) {
    std::size_t inRecord = 1;
    // Some writers keep more data after the field descriptors. The end mark shows where the descriptors end.
    for (std::size_t at = dbf::fixedHeader; at + dbf::descriptorSize < headerLength + 1;
         at += dbf::descriptorSize) {
        std::string_view descriptor = TextOf(bytes_.subspan(at, dbf::descriptorSize));
        if (descriptor[0] == dbf::endOfFields) break;
        std::string_view name = descriptor.substr(0, nameSize);
        name = name.substr(0, std::min(name.find('\0'), dbf::longestName));
        auto width = static_cast<unsigned char>(descriptor[16]);
        fields_.push_back({util::Trim(name), inRecord, width, descriptor[11]});
        inRecord += width;
    }
}

std::string_view DbfTable::Record(std::int64_t number) const {
    if (number < 1) return {};
    auto index = static_cast<std::uint64_t>(number - 1);
    if (recordLength_ == 0 || index > recordCount_) return {};
    std::size_t at = headerLength_ + index * recordLength_;
    return TextOf(bytes_).substr(at, recordLength_);
}

std::string_view DbfTable::Value(std::string_view record, const DbfField& field) {
    if (field.offset >= record.size()) return {};
    std::string_view value = record.substr(field.offset, field.width);
    while (!value.empty() && IsPadding(value.back())) value.remove_suffix(1);
    while (!value.empty() && IsPadding(value.front())) value.remove_prefix(1);
    return value;
}

std::string DbfEncoding(std::string_view cpgText, std::uint8_t languageByte) {
    std::string_view named = cpgText.substr(0, cpgText.find_first_of("\r\n"));
    named = util::Trim(platform::WithoutByteOrderMark(named));
    if (!named.empty()) return std::string(named);

    static constexpr std::array<std::pair<std::uint8_t, std::string_view>, 59> codes = {{
        {0x01, "CP437"},  {0x02, "CP850"},  {0x03, "CP1252"}, {0x04, "MACINTOSH"}, {0x08, "CP865"},
        {0x09, "CP437"},  {0x0A, "CP850"},  {0x0B, "CP437"},  {0x0D, "CP437"},     {0x0E, "CP850"},
        {0x0F, "CP437"},  {0x10, "CP850"},  {0x11, "CP437"},  {0x12, "CP850"},     {0x13, "CP932"},
        {0x14, "CP850"},  {0x15, "CP437"},  {0x16, "CP850"},  {0x17, "CP865"},     {0x18, "CP437"},
        {0x19, "CP437"},  {0x1A, "CP850"},  {0x1B, "CP437"},  {0x1C, "CP863"},     {0x1D, "CP850"},
        {0x1F, "CP852"},  {0x22, "CP852"},  {0x23, "CP852"},  {0x24, "CP860"},     {0x25, "CP850"},
        {0x26, "CP866"},  {0x37, "CP850"},  {0x40, "CP852"},  {0x4D, "CP936"},     {0x4E, "CP949"},
        {0x4F, "CP950"},  {0x50, "CP874"},  {0x57, "CP1252"}, {0x58, "CP1252"},    {0x59, "CP1252"},
        {0x64, "CP852"},  {0x65, "CP866"},  {0x66, "CP865"},  {0x67, "CP861"},     {0x6A, "CP737"},
        {0x6B, "CP857"},  {0x6C, "CP863"},  {0x78, "CP950"},  {0x79, "CP949"},     {0x7A, "CP936"},
        {0x7B, "CP932"},  {0x7C, "CP874"},  {0x7D, "CP1255"}, {0x7E, "CP1256"},    {0xC8, "CP1250"},
        {0xC9, "CP1251"}, {0xCA, "CP1254"}, {0xCB, "CP1253"}, {0xCC, "CP1257"},
    }};
    for (auto [code, name] : codes)
        if (code == languageByte) return std::string(name);
    return "CP1252";
}

}  // namespace vexlator::formats
