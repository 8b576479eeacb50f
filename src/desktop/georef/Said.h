// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "georef/Sentence.h"

#include <QString>

namespace vexlator::desktop {

/// In the language of the person.
QString Said(const georef::Sentence& sentence);

}  // namespace vexlator::desktop
