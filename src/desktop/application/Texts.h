// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>
#include <string_view>

namespace vexlator::desktop {

/// The context of all texts of the windows, so that a text is translated once wherever it stands.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(vexlator)
};

/// A text of the libraries below, which is UTF-8.
inline QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace vexlator::desktop
