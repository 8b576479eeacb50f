// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>

class QScrollBar;

namespace vexlator::desktop {

class ImageView;

/// `fraPic`: the image with scroll bars, which are there when it is larger than the frame.
class ImageFrame : public QFrame {
public:
    explicit ImageFrame(QWidget* parent = nullptr);

    ImageView& Picture() { return *picture_; }
    /// To be called when the picture's view has changed.
    void Follow();

private:
    void FollowAlong(QScrollBar& bar, double whole, double seen, double offset);
    void Scroll();

    ImageView* picture_;
    QScrollBar *horizontal_, *vertical_;
    bool isFollowing_ = false;
};

}  // namespace vexlator::desktop
