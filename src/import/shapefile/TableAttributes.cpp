// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/shapefile/TableAttributes.h"

#include "util/Counted.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::importer {

namespace {

formats::DbfTable TableOf(const platform::MappedFile& file) {
    try {
        return formats::DbfTable(file.Bytes());
    } catch (const platform::ReadError& error) {
        throw error.InFile(file.Name());
    }
}

std::string EncodingOf(std::string_view dbfPath, const formats::DbfTable& table) {
    constexpr std::size_t longestName = 256;
    std::string path = util::ChangeExtension(dbfPath, "CPG");
    if (util::FileSize(path) == 0) return formats::DbfEncoding("", table.LanguageByte());
    platform::MappedFile file(path);
    return formats::DbfEncoding(file.Text().substr(0, longestName), table.LanguageByte());
}

/// ASCII without "," and NUL needs no change for the drawing.
bool IsPlain(std::string_view record) {
    return platform::IsAscii(record) && record.find(',') == std::string_view::npos &&
           record.find('\0') == std::string_view::npos;
}

}  // namespace

TableAttributes::TableAttributes(std::string_view dbfPath, drawing::Drawing& drawing)
    : file_(dbfPath), table_(TableOf(file_)), encoding_(EncodingOf(dbfPath, table_)), decoder_(encoding_) {
    for (const formats::DbfField& field : table_.Fields()) names_.push_back(decoder_.Decode(field.name));
    set_ = drawing.attributeSet(names_);
}

std::vector<int> TableAttributes::FieldWidths() const {
    std::vector<int> widths;
    for (const formats::DbfField& field : table_.Fields()) widths.push_back(static_cast<int>(field.width));
    return widths;
}

void TableAttributes::AddTo(drawing::Drawing& drawing, std::int32_t number) {
    std::string_view record = table_.Record(number);
    if (record.size() < table_.RecordLength()) ++missingRows_;
    drawing.beginValues(set_);
    if (IsPlain(record)) {
        for (const formats::DbfField& field : table_.Fields())
            drawing.appendValue(formats::DbfTable::Value(record, field));
    } else {
        for (const formats::DbfField& field : table_.Fields())
            AddDecoded(drawing, formats::DbfTable::Value(record, field));
    }
    if (!record.empty()) file_.DoneBefore(static_cast<std::size_t>(record.data() - file_.Text().data()));
}

void TableAttributes::AddDecoded(drawing::Drawing& drawing, std::string_view value) {
    text_.clear();
    decoder_.Append(text_, value);
    std::replace(text_.begin(), text_.end(), '\0', ' ');
    if (text_.find(',') != std::string::npos) text_ = util::ReplaceAll(text_, ",", ";;");
    drawing.appendValue(text_);
}

std::vector<std::string> TableAttributes::Remarks() const {
    std::vector<std::string> remarks;
    if (!decoder_.IsKnown())
        remarks.push_back(file_.Name() + ": its encoding \"" + encoding_ +
                          "\" is not known; its text was read as Windows-1252");
    if (decoder_.Misfits() > 0)
        remarks.push_back(file_.Name() + ": " + util::Counted(decoder_.Misfits(), "value") +
                          " not valid in its encoding " + encoding_ + ", read as Windows-1252");
    if (missingRows_ > 0)
        remarks.push_back(file_.Name() + ": " + util::Counted(missingRows_, "row") +
                          " missing, whose values are empty");
    return remarks;
}

}  // namespace vexlator::importer
