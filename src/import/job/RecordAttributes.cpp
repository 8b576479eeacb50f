// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/job/RecordAttributes.h"

#include "platform/Errors.h"
#include "platform/Paths.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

namespace vexlator::importer {

namespace {

constexpr std::size_t firstValue = 2;  ///< the field with the first value of an attribute record

formats::CellCursor ValuesOf(const formats::JobTable& table, formats::JobTable::Row row) {
    formats::CellCursor cells(table.Line(row));
    for (std::size_t i = 0; i < firstValue; ++i) cells.Next();
    return cells;
}

}  // namespace

RecordAttributes::RecordAttributes(drawing::Drawing& drawing, const formats::JobTable& table,
                                   std::string_view jobPath)
    : drawing_(drawing),
      table_(table),
      jobName_(util::BaseNameOf(jobPath)),
      photoFolder_(platform::AbsolutePath(util::FolderOf(jobPath))),
      numberedCount_(table.Width() > firstValue ? table.Width() - firstValue : 0) {}

void RecordAttributes::AttachRecordAttributes(drawing::Entity entity, const FeatureTemplate& feature,
                                              std::string_view key, formats::JobTable::Row row) {
    if (row == formats::JobTable::noRow) {
        AddIdentity(feature, key);
    } else if (feature.fields.empty()) {
        AddValues(NumberedFields(), numberedCount_, row);
    } else {
        SetHyperlink(entity, feature, row);
        AddValues(feature.attributes, feature.fields.size(), row);
    }
}

void RecordAttributes::AddIdentity(const FeatureTemplate& feature, std::string_view key) {
    drawing_.beginValues(feature.identity);
    if (feature.fields.empty()) {
        drawing_.appendValue(key);
        return;
    }
    text_.assign(jobName_).append("-").append(key);
    drawing_.appendValue(text_);
}

void RecordAttributes::AddValues(drawing::AttributeSet set, std::size_t count, formats::JobTable::Row row) {
    drawing_.beginValues(set);
    formats::CellCursor cells = ValuesOf(table_, row);
    for (; count > 0 && !cells.AtEnd(); --count) drawing_.appendValue(ValueOf(cells.Next()));
    padding_ += count;
    if (padding_ > mostPadding) FailTooWide();
    for (; count > 0; --count) drawing_.appendValue({});
}

void RecordAttributes::SetHyperlink(drawing::Entity entity, const FeatureTemplate& feature,
                                    formats::JobTable::Row row) {
    if (!feature.hotlink) return;
    formats::CellCursor cells = ValuesOf(table_, row);
    for (std::size_t i = 0; i < *feature.hotlink; ++i) cells.Next();
    std::string_view name = ValueOf(cells.Next());
    if (!name.empty()) entity.setHyperlink(platform::NativePath(util::JoinPath(photoFolder_, name)));
}

drawing::AttributeSet RecordAttributes::NumberedFields() {
    if (hasNumbered_) return numbered_;
    if (numberedCount_ > mostNumberedFields) FailTooWide();
    std::vector<std::string> names;
    for (std::size_t i = 1; i <= numberedCount_; ++i) names.push_back("FIELD" + std::to_string(i));
    numbered_ = drawing_.attributeSet(names);
    hasNumbered_ = true;
    return numbered_;
}

std::string_view RecordAttributes::ValueOf(std::string_view cell) {
    cell = util::Trim(cell);
    if (cell.find(";;") == std::string_view::npos) return cell;
    text_ = util::ReplaceAll(cell, ";;", ",");
    return text_;
}

void RecordAttributes::FailTooWide() const {
    throw platform::ReadError(
        "", platform::ReadError::AtLine(table_.WidestLine()),
        util::GroupedCount(table_.Width()) + " fields are too many attributes for every feature of the job");
}

}  // namespace vexlator::importer
