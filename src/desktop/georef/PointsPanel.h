// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QSortFilterProxyModel;
class QTableView;

namespace vexlator::desktop {

class PointsModel;

/// The control points beside the image: as a table and as a list of lines, the ground position of the point
/// that is selected, the fit in words, and what can be done with it.
class PointsPanel : public QWidget {
public:
    /// The model outlives it.
    explicit PointsPanel(PointsModel& model, QWidget* parent = nullptr);
    ~PointsPanel() override;

    /// To be called after every change of the model.
    void Follow();
    /// 0: none.
    void Select(int number);
    int Selected() const { return selected_; }
    /// Types into the field of the ground position; "": goes there.
    void TypeGround(const QString& text);
    void SetRunning(bool isRunning, bool hasImage);

    std::function<void(int)> selected;
    std::function<void()> entered;  ///< a ground position has been typed

    QCheckBox *chkRotate, *chkSecondOrder;
    QPushButton *btnGeoRef, *btnCarve, *btnCancel;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* MakeTable();
    QWidget* MakeList();
    QWidget* MakeGround();
    QWidget* MakeButtons();
    void FollowTable();
    void FollowList();
    void FollowGround();
    void TakeList();
    void EnterGround();
    void ShowReading();

    PointsModel& model_;
    QSortFilterProxyModel* sorted_;
    QTableView* table_;
    QPlainTextEdit* txtControl_;
    QLabel *groundLabel_, *reading_, *fit_;
    QLineEdit* txtGround_;
    int selected_ = 0, typing_ = 0;
    bool isFollowing_ = false;
};

}  // namespace vexlator::desktop
