// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/application/Application.h"

#include "desktop/application/LateIcons.h"
#include "desktop/application/Texts.h"

#include <QApplication>
#include <QEvent>
#include <QIcon>
#include <QLibrary>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPalette>
#include <QStyle>
#include <QTimer>
#include <QTranslator>

namespace vexlator::desktop {

namespace {

/// Lets the application use the texts of a name in the person's language, else in English.
void Translate(QApplication& application, const QString& name, const QString& folder) {
    auto* translator = new QTranslator(&application);
    if (translator->load(QLocale(), name, QStringLiteral("_"), folder) ||
        translator->load(name + QStringLiteral("_en"), folder))
        QCoreApplication::installTranslator(translator);
}

QPalette DarkPalette() {
    QPalette palette(QColor(0x33, 0x35, 0x38));
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
    palette.setColor(QPalette::AlternateBase, QColor(0x25, 0x26, 0x29));
    palette.setColor(QPalette::ToolTipBase, QColor(0x39, 0x3b, 0x40));
    palette.setColor(QPalette::ToolTipText, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(0x3a, 0x7b, 0xd5));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6c, 0xa8, 0xf0));
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, QColor(0xdf, 0xe1, 0xe5));
        palette.setColor(QPalette::Disabled, role, QColor(0x7a, 0x7d, 0x83));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(0x8a, 0x8d, 0x93));
    return palette;
}

/// Gives the application its icon once a window is seen: to draw it, all plugins for images are loaded.
class WindowIcon : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Expose && watched->isWindowType()) {
            qApp->removeEventFilter(this);
            QTimer::singleShot(
                0, qApp, [] { QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/vexlator.svg"))); });
            deleteLater();
        }
        return false;
    }
};

/// A connection to the display, to see whether it answers. DISPLAY outlives the display that it names, as in
/// a script begun from a session that is over, and Qt would end the program. It stays until Qt has its own: a
/// display begins anew when the last of its programs leaves, and refuses others while it does.
class DisplayProbe {
public:
    DisplayProbe() {
        QLibrary xcb(QStringLiteral("xcb"), 1);
        auto connect = reinterpret_cast<void* (*)(const char*, int*)>(xcb.resolve("xcb_connect"));
        auto hasError = reinterpret_cast<int (*)(void*)>(xcb.resolve("xcb_connection_has_error"));
        disconnect_ = reinterpret_cast<void (*)(void*)>(xcb.resolve("xcb_disconnect"));
        if (!connect || !hasError || !disconnect_) return;
        connection_ = connect(nullptr, nullptr);
        answers_ = hasError(connection_) == 0;
    }
    ~DisplayProbe() {
        if (connection_) disconnect_(connection_);
    }
    DisplayProbe(const DisplayProbe&) = delete;
    DisplayProbe& operator=(const DisplayProbe&) = delete;

    bool Answers() const { return answers_; }

private:
    void (*disconnect_)(void*) = nullptr;
    void* connection_ = nullptr;
    bool answers_ = true;
};

std::unique_ptr<DisplayProbe> probe;

bool DisplayAnswers() {
    probe = std::make_unique<DisplayProbe>();
    return probe->Answers();
}

}  // namespace

bool HasDisplay() {
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return true;
    return !qEnvironmentVariableIsEmpty("DISPLAY") && DisplayAnswers();
}

void SetUp(QApplication& application, bool dark) {
    QApplication::setApplicationName(QStringLiteral("Vexlator"));
    QApplication::setOrganizationName(QStringLiteral("Vexlator"));
    QApplication::setDesktopFileName(QStringLiteral("vexlator"));
    probe.reset();
    QApplication::setStyle(new LateIconStyle);
    application.installEventFilter(new WindowIcon(&application));
    if (dark) QApplication::setPalette(DarkPalette());
    Translate(application, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    Translate(application, QStringLiteral("vexlator"), QStringLiteral(":/i18n"));
}

Listener BoxesOver(const std::function<QWidget*()>& window, std::function<void(const QString&)> report) {
    auto box = [window](QMessageBox::Icon icon, const QString& text, QMessageBox::StandardButtons buttons) {
        QMessageBox shown(icon, Texts::tr("Vexlator"), text, buttons, window());
        shown.setTextFormat(Qt::PlainText);
        return shown.exec();
    };
    return {
        .showMessage = [box](const QString& text) { box(QMessageBox::Information, text, QMessageBox::Ok); },
        .askYesNo =
            [box](const QString& text) {
                return box(QMessageBox::Question, text, QMessageBox::Yes | QMessageBox::No) ==
                       QMessageBox::Yes;
            },
        .report = std::move(report)};
}

}  // namespace vexlator::desktop
