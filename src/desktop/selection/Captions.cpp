// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/selection/Captions.h"

#include "desktop/application/Texts.h"
#include "util/Translation.h"

#include <QAbstractButton>
#include <QLabel>

namespace vexlator::desktop {

namespace {

template <typename Control>
void TranslateEach(QWidget& window, const std::string& languageFile) {
    for (Control* control : window.findChildren<Control*>()) {
        QString caption = control->text(), plain = caption;
        plain.remove(QLatin1Char('&'));
        util::Caption captions[] = {
            {.control = control->objectName().toStdString(), .text = plain.toStdString()}};
        util::TranslateCaptions(captions, languageFile);
        QString translated = Text(captions[0].text);
        control->setText(translated == plain ? Texts::tr(caption.toUtf8().constData()) : translated);
    }
}

}  // namespace

void TranslateWindow(QWidget& window, const std::string& languageFile) {
    TranslateEach<QLabel>(window, languageFile);
    TranslateEach<QAbstractButton>(window, languageFile);
}

}  // namespace vexlator::desktop
