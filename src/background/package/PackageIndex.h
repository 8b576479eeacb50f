// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/Records.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::background {

/// An index (.GRP): a header record, whose box covers all members, and one record per member.
class PackageIndex {
public:
    PackageIndex();
    /// Names are cut to 20 UTF-16 units. `kind` is from namespace member.
    void AddIndexEntry(std::string_view memberName, const Box& box, std::int16_t kind);
    /// Replaces the box that covers the members.
    void SetExtents(const Box& box);
    bool HasMembers() const { return records_.size() > 1; }
    /// The bytes of the file.
    std::string_view Bytes() const {
        return {reinterpret_cast<const char*>(records_.data()), records_.size() * sizeof(GrpIndexRecord)};
    }

private:
    std::vector<GrpIndexRecord> records_;
};

}  // namespace vexlator::background
