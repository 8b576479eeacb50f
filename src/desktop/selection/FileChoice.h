// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace vexlator::desktop {

// Filters of file dialogs: words and patterns take turns, separated by "|".
inline constexpr const char* sourceFilter =
    "All Known "
    "Files|*.shp;*.mif;*.tab;*.job;*.mxd;*.lyr;*.swd;*.jpg;*.bmp;*.ecw;*.dxf;*.dwg;*.dgn;*.gz;*.gml;*.pdf;"
    "*.ntf|GIS Files|*.shp;*.mif;*.tab;*.job;*.mxd;*.lyr;*.swd|Raster Files|*.jpg;*.bmp;*.ecw|CAD "
    "Files|*.dxf;*.dwg;*.dgn;*.vdf|Raster Files|*.jpg;*.ecw|MasterMap Files|*.gz;*.gml|OS NTF "
    "Files|*.ntf|Kadaster PDF Files|*.pdf;*.pdf";
inline constexpr const char* targetFilter = "Gorvane GRP|*.GRP";
inline constexpr const char* stylingFilter = "Background styling|*.BSF";

/// Shows the platform's file dialog "Select File", for saving when `save` is set, and returns the path that
/// was chosen, or "". Without a folder it starts where a file of this filter was last chosen.
QString SelectFile(QWidget* parent, const QString& folder, bool save, const QString& filter);

/// The same filters as Qt's dialog takes them, each in both letter cases.
QString DialogFilter(const QString& filter);

/// The sources chosen last, newest first.
QStringList RecentSources();
void RememberSource(const QString& path);
void ForgetSources();

}  // namespace vexlator::desktop
