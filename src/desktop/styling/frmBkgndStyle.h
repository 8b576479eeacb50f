// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/styling/LayerStyles.h"
#include "config/Installation.h"
#include "desktop/styling/StyleTable.h"
#include "desktop/styling/StyledDrawing.h"
#include "desktop/styling/StylingRun.h"
#include "render/Painter.h"

#include <QFileSystemWatcher>
#include <QMainWindow>
#include <QTemporaryDir>
#include <QTimer>
#include <QUndoStack>
#include <functional>
#include <memory>
#include <optional>
#include <string>

class QListWidget;
class QPushButton;

namespace vexlator::desktop {

class ProgressPanel;
class StylingForm;

/// Edits a background styling file and shows it on a drawing.
class frmBkgndStyle : public QMainWindow {
public:
    /// Takes a drawing file, its style file and what the drawing was made of, for the package to be built
    /// (btnQuickConvert).
    using Convert = std::function<void(const QString& drawing, const QString& style, const QString& source)>;

    /// The installation outlives it. Without `convert` there is no quick conversion.
    explicit frmBkgndStyle(config::Installation& installation, Convert convert = {},
                           QWidget* parent = nullptr);
    ~frmBkgndStyle() override;

    /// Path texts. What is wrong with a file is told.
    void LoadStyleFile(const std::string& path);
    /// A drawing, or a source that becomes one; goes on in the background.
    void OpenDrawing(const std::string& source);

    bool IsBusy() const { return run_.IsRunning(); }
    const background::StyledState& State() const { return state_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void MakeMenus();

    // What is clicked, typed and dropped.
    void OnClick(QPushButton* button, void (frmBkgndStyle::*act)());
    void ConnectRows();
    void ConnectLists();
    void ConnectDrawing();
    void ConnectFiles();
    void ConnectTimers();
    bool PicksPlace(QEvent* event);

    // What is edited. Every change goes through Change(), which can be undone.
    void Change(const QString& what, background::StyledState after);
    void ChangeStyle(const QString& what, const std::function<void(background::BackgroundStyle&)>& change);
    void Show(const background::StyledState& state);
    void EditCell(int row, background::StyleColumn column, const std::string& text);
    void ClearCells();
    void GetLayers();
    void Reset();
    void RemoveRows();
    void UseSimple(bool isOn);
    void TakeLists();
    void TakeHeight();
    background::BackgroundStyle ListedStyle(background::BackgroundStyle style) const;
    void ShowLists();
    void ShowTitle();
    void UpdateControls();

    // Files.
    void ChooseStyle();
    bool SaveStyle();
    bool MayLeaveStyle();
    bool MayLeaveDrawing();
    bool StyleIsSaved() const;
    bool MayReplace(const QString& path);
    QString ChooseTarget(const QString& start, const char* filter, const QString& extension);
    void ReadMobileStyles();
    void WatchMobileStyles();
    void SelectMobileStyles();
    void EditMobileStyles();
    void ChoosePreview();
    void SaveDrawing();
    void QuickConvert();

    // The drawing.
    void Work(const QString& what, std::function<void(config::Run&)> work, std::function<void()> done);
    void Read(const DrawingOrder& order, std::function<void()> done);
    void TakeDrawing(std::shared_ptr<const StyledDrawing> shown);
    void ChangeDrawing(const QString& what, const background::DrawingChange& change, const QString& told);
    /// Reads the drawing anew, or builds the package, where what is shown is not what is wanted.
    void CatchUp();
    void ShowAnnotation();
    void ListAttributes();
    void AskToRelayer();
    void RunTool();
    void Move(render::PlanePoint from);
    void EndPicking();
    void ShowEntity(std::optional<std::size_t> item);
    void SelectLayer(const std::string& layer);

    // The preview.
    void Restyle();
    void Flash(int row);
    void ShowFlash();
    void ShowScene(std::shared_ptr<const render::Scene> scene);
    void ShowDevice();
    void Tell(const QString& text);
    bool Asks(const QString& question);

    config::Installation& installation_;
    Convert convert_;
    StyleTable table_;
    StylingForm* form_;
    ProgressPanel* progress_;
    QUndoStack undo_;
    QAction *undoAction_ = nullptr, *redoAction_ = nullptr;
    QAction *openAction_ = nullptr, *previewAction_ = nullptr, *saveDrawingAction_ = nullptr;

    background::StyledState state_;
    background::BackgroundStyle savedStyle_;
    std::vector<background::DrawingChange> savedChanges_;
    std::string styleFile_, mobileFile_;
    std::string source_;    ///< of the drawing, as it was chosen
    QTemporaryDir folder_;  ///< for drawings that sources were converted to
    std::shared_ptr<const StyledDrawing> shown_;
    std::unique_ptr<background::LayerStyles> styles_;
    /// What the package on the map was built for; none once settings or mobile styles have changed.
    std::optional<background::StyledState> onDevice_;
    bool mapShowsPackage_ = false, picksPlace_ = false, showsLists_ = false;
    render::Box extents_;  ///< of the scene on the map

    render::LayerPens pens_;
    std::vector<bool> hidden_;
    QTimer flash_, deviceLater_, mobileLater_;
    int flashRow_ = -1, flashesLeft_ = 0;
    QFileSystemWatcher mobileWatch_;
    StylingRun run_;
};

}  // namespace vexlator::desktop
