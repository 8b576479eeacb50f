// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "formats/job/JobTable.h"
#include "import/FeatureLayers.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::importer {

/// Gives features the values of their attribute records, for the current job file.
class RecordAttributes {
public:
    /// Limit for the values of a job that its records do not hold. Without it, one line with very many fields
    /// would give every feature as many attributes.
    static constexpr std::uint64_t mostPadding = 64'000'000;
    /// Attributes without a template are called FIELD1, FIELD2 ... up to this number.
    static constexpr std::size_t mostNumberedFields = 65'536;

    /// `table` must outlive the object. `jobPath` names the job; photographs are beside it.
    RecordAttributes(drawing::Drawing& drawing, const formats::JobTable& table, std::string_view jobPath);

    /// Gives the last added entity the attributes of `row`. Without a row (JobTable::noRow), one attribute
    /// with its key, a point number or feature ID. A value with the name HOTLINK also becomes the entity's
    /// hyperlink.
    /// @throws platform::ReadError naming the widest line, if one of the two limits is reached
    void AttachRecordAttributes(drawing::Entity entity, const FeatureTemplate& feature, std::string_view key,
                                formats::JobTable::Row row);

private:
    void AddIdentity(const FeatureTemplate& feature, std::string_view key);
    void AddValues(drawing::AttributeSet set, std::size_t count, formats::JobTable::Row row);
    void SetHyperlink(drawing::Entity entity, const FeatureTemplate& feature, formats::JobTable::Row row);
    drawing::AttributeSet NumberedFields();
    std::string_view ValueOf(std::string_view cell);
    [[noreturn]] void FailTooWide() const;

    drawing::Drawing& drawing_;
    const formats::JobTable& table_;
    std::string jobName_, photoFolder_;
    std::size_t numberedCount_;
    drawing::AttributeSet numbered_ = 0;
    bool hasNumbered_ = false;
    std::uint64_t padding_ = 0;
    std::string text_;
};

}  // namespace vexlator::importer
