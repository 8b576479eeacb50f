// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <memory>
#include <stop_token>
#include <string>
#include <vector>

class QPainter;

namespace vexlator::desktop {

/// An image at its own size, half of it, a quarter and so on, so that painting costs what the screen shows at
/// every scale. It takes a third more memory than the image.
class ImagePyramid {
public:
    /// @throws platform::Stopped, std::bad_alloc
    explicit ImagePyramid(QImage image, const std::stop_token& stop = {});

    QSize Size() const { return levels_.front().size(); }
    bool IsTransparent() const { return levels_.front().hasAlphaChannel(); }
    /// Paints a part of the image, in its pixels. `target` is in pixels of the screen. Single pixels have
    /// edges once they are larger than those of the screen.
    void Paint(QPainter& painter, const QRectF& target, const QRectF& part) const;
    qsizetype Bytes() const;

private:
    std::vector<QImage> levels_;
};

/// Reads an image file as its bytes lie, whatever a camera says of how it was held.
/// @throws platform::ReadError, platform::Stopped soon after a stop
std::shared_ptr<const ImagePyramid> ReadImage(const std::string& path, const std::stop_token& stop);

}  // namespace vexlator::desktop
