// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/selection/FileChoice.h"

#include "desktop/application/Texts.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QSettings>

namespace vexlator::desktop {

namespace {

/// The words of all filters, for scripts/translate.
[[maybe_unused]] constexpr const char* filterWords[] = {
    QT_TRANSLATE_NOOP("vexlator", "All Known Files"),    QT_TRANSLATE_NOOP("vexlator", "GIS Files"),
    QT_TRANSLATE_NOOP("vexlator", "Raster Files"),       QT_TRANSLATE_NOOP("vexlator", "CAD Files"),
    QT_TRANSLATE_NOOP("vexlator", "MasterMap Files"),    QT_TRANSLATE_NOOP("vexlator", "OS NTF Files"),
    QT_TRANSLATE_NOOP("vexlator", "Kadaster PDF Files"), QT_TRANSLATE_NOOP("vexlator", "Gorvane GRP"),
    QT_TRANSLATE_NOOP("vexlator", "Background styling")};

constexpr qsizetype mostRecent = 10;
const QString recentKey = QStringLiteral("recentSources");

QString FolderKey(const QString& filter) {
    return QStringLiteral("lastFolder/") + filter.section(QLatin1Char('|'), 0, 0).remove(QLatin1Char(' '));
}

}  // namespace

QString DialogFilter(const QString& filter) {
    QStringList parts = filter.split(QLatin1Char('|')), filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].toLower().split(QLatin1Char(';'));
        patterns += parts[i + 1].toUpper().split(QLatin1Char(';'));
        patterns.removeDuplicates();
        QString words = Texts::tr(parts[i].toUtf8().constData());
        filters << words + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
    }
    return filters.join(QStringLiteral(";;"));
}

QString SelectFile(QWidget* parent, const QString& folder, bool save, const QString& filter) {
    QSettings settings;
    QString start = folder.isEmpty() ? settings.value(FolderKey(filter)).toString() : folder;
    QString title = Texts::tr("Select File"), words = DialogFilter(filter);
    QString chosen = save ? QFileDialog::getSaveFileName(parent, title, start, words)
                          : QFileDialog::getOpenFileName(parent, title, start, words);
    if (!chosen.isEmpty()) settings.setValue(FolderKey(filter), QFileInfo(chosen).absolutePath());
    return chosen;
}

QStringList RecentSources() {
    return QSettings().value(recentKey).toStringList();
}

void RememberSource(const QString& path) {
    QStringList sources = RecentSources();
    sources.removeAll(path);
    sources.prepend(path);
    QSettings().setValue(recentKey, QStringList(sources.mid(0, mostRecent)));
}

void ForgetSources() {
    QSettings().remove(recentKey);
}

}  // namespace vexlator::desktop
