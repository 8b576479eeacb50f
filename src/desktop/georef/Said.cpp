// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/georef/Said.h"

#include "desktop/application/Texts.h"

namespace vexlator::desktop {

QString Said(const georef::Sentence& sentence) {
    QString said;
    for (const georef::Sentence::Part& part : sentence.Parts())
        said += Text(georef::Filled(Texts::tr(part.text).toStdString(), part.values));
    return said;
}

}  // namespace vexlator::desktop
