// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/styling/MobileStyleLook.h"

#include <QIcon>
#include <QRectF>
#include <QString>

class QPainter;

namespace vexlator::desktop {

/// A mobile style on white paper, as the map draws it: a symbol for type "P", a line for "S", a patch for
/// others. What would not fit is drawn smaller.
void PaintStyleSample(QPainter& painter, const QRectF& place, const QString& type,
                      const background::MobileStyleLook& look, double enlargement = 1);

/// Small pictures for lists, sharp at every scale.
QIcon StyleIcon(const QString& type, const background::MobileStyleLook& look);
QIcon ColourIcon(const QString& colour);
QSize SampleSize();

}  // namespace vexlator::desktop
