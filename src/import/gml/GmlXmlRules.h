// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

namespace vexlator::importer {

struct GmlXmlRules {
    /// Only elements of the "fme" namespace are properties, those with child elements too; a text that is no
    /// number counts as 0; srsDimension="3" holds for the rest of the feature.
    bool lineLayout = false;
    bool fullRings = true;
};

}  // namespace vexlator::importer
