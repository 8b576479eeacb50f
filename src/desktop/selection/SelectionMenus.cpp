// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/application/Texts.h"
#include "desktop/selection/FileChoice.h"
#include "desktop/selection/SelectionForm.h"
#include "desktop/selection/SelectionWindow.h"
#include "util/Paths.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

/// The menus of the selection window and what they open.
namespace vexlator::desktop {

namespace {

QAction* Add(QMenu& menu, const QString& text, const QKeySequence& keys,
             const std::function<void()>& action) {
    QAction* added = menu.addAction(text);
    added->setShortcut(keys);
    QObject::connect(added, &QAction::triggered, added, action);
    return added;
}

QString WhyNoCommand(const startup::ShownCommand& command) {
    QString control = Text(command.control);
    using Problem = startup::ShownCommand::Problem;
    if (command.problem == Problem::Separator)
        return Texts::tr("%1 holds a comma, a \"=\" or a line end, which a GO command cannot carry")
            .arg(control);
    if (command.problem == Problem::OuterBlank)
        return Texts::tr("%1 begins or ends with a blank, which a GO command cannot carry").arg(control);
    return Texts::tr("%1 is longer than the %2 characters that gv.ini gives back")
        .arg(control, QString::number(startup::longestIniValue));
}

/// A text to be looked at and copied.
void ShowText(QWidget* parent, const QString& title, const QString& introduction, const QString& text) {
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("frmCommandLine"));
    dialog.setWindowTitle(title);
    auto* label = new QLabel(introduction);
    label->setWordWrap(true);
    auto* shown = new QPlainTextEdit(text);
    shown->setReadOnly(true);
    shown->setAccessibleName(title);
    label->setBuddy(shown);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* copy = buttons->addButton(Texts::tr("&Copy"), QDialogButtonBox::ActionRole);
    QObject::connect(copy, &QPushButton::clicked, &dialog,
                     [text] { QApplication::clipboard()->setText(text); });
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* column = new QVBoxLayout(&dialog);
    column->addWidget(label);
    column->addWidget(shown, 1);
    column->addWidget(buttons);
    dialog.resize(dialog.fontMetrics().averageCharWidth() * 90, dialog.fontMetrics().height() * 12);
    dialog.exec();
}

}  // namespace

void SelectionWindow::MakeMenus() {
    QMenu* file = menuBar()->addMenu(Texts::tr("&File"));
    Add(*file, Texts::tr("&Open source…"), QKeySequence::Open, [this] { BrowseSource(); });
    QMenu* recent = file->addMenu(Texts::tr("&Recent sources"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { FillRecent(*recent); });
    Add(*file, Texts::tr("&Package…"), QKeySequence::SaveAs, [this] { BrowseTarget(); });
    Add(*file, Texts::tr("Re&move from the list"), QKeySequence::Delete, [this] { RemoveSelected(); });
    file->addSeparator();
    Add(*file, Texts::tr("&Quit"), QKeySequence::Quit, [this] { close(); });

    QMenu* view = menuBar()->addMenu(Texts::tr("&View"));
    Add(*view, Texts::tr("&Show on the map"), Qt::Key_F3, [this] {
        ShowPreview();
    })->setEnabled(static_cast<bool>(options_.others.preview));
    Add(*view, Texts::tr("What &Go said…"), Qt::Key_F4, [this] { ShowSaid(); });
    Add(*view, Texts::tr("&List the files again"), QKeySequence::Refresh, [this] {
        if (!go_.IsRunning()) FollowSource();
    });

    QMenu* tools = menuBar()->addMenu(Texts::tr("&Tools"));
    Add(*tools, Texts::tr("Background &options…"), QKeySequence::Preferences, [this] {
        options_.others.options(this);
    })->setEnabled(static_cast<bool>(options_.others.options));
    Add(*tools, Texts::tr("Background &styling…"), {}, [this] {
        options_.others.styling(this, form_->txtStyling->text());
    })->setEnabled(static_cast<bool>(options_.others.styling));
    Add(*tools, Texts::tr("Coordinate &library…"), {}, [this] {
        if (options_.others.library(this))
            QMessageBox::information(this, caption_,
                                     Texts::tr("The coordinate library is where it is expected."));
    })->setEnabled(static_cast<bool>(options_.others.library));
    Add(*tools, Texts::tr("&Georeference an image…"), {}, [this] {
        QString source = form_->btnGeo->isVisible() ? form_->txtSource->text() : QString();
        options_.others.georeference(this, source);
    })->setEnabled(static_cast<bool>(options_.others.georeference));
    Add(*tools, Texts::tr("Show as &command…"), Qt::CTRL | Qt::Key_K, [this] { ShowCommand(); });

    QMenu* help = menuBar()->addMenu(Texts::tr("&Help"));
    Add(*help, Texts::tr("&About Vexlator"), {}, [this] {
        QMessageBox::about(
            this, Texts::tr("About Vexlator"),
            Texts::tr("<b>%1</b><p>Turns field drawings into GIS formats, GIS data into drawings, and "
                      "maps into background packages.</p><p>%2</p>")
                .arg(caption_, Texts::tr("Under the MIT licence")));
    });
}

void SelectionWindow::FillRecent(QMenu& menu) {
    menu.clear();
    for (const QString& path : RecentSources())
        Add(menu, QString(path).replace(QLatin1Char('&'), QLatin1String("&&")), {}, [this, path] {
            if (!go_.IsRunning()) ChooseSource(path);
        })->setEnabled(QFileInfo::exists(path));
    menu.addSeparator();
    Add(menu, Texts::tr("&Forget them"), {}, [] { ForgetSources(); });
}

void SelectionWindow::ShowSaid() {
    ShowText(this, Texts::tr("What Go said"), Texts::tr("Messages and lines of the last conversion:"),
             said_.join(QLatin1Char('\n')));
}

/// The tiles that an image was cut into become the sources, and their folder's package the target.
void SelectionWindow::ResetToJPGlist(const QString& imagePath) {
    if (go_.IsRunning()) return;
    startup::SelectionSettings choices = Choices();
    startup::ResetToJPGlist(choices, imagePath.toStdString());
    form_->txtSource->setText(Text(choices.txtSource));
    form_->txttarget->setText(Text(choices.txttarget));
    form_->txttarget->setEnabled(false);
    form_->chkAll->setChecked(true);
    FollowSource();
}

void SelectionWindow::ShowCommand() {
    startup::ShownCommand command = startup::ShowAsCommand(Choices());
    if (command.line.empty())
        QMessageBox::information(this, Texts::tr("Show as command"), WhyNoCommand(command));
    else
        ShowText(this, Texts::tr("Show as command"),
                 Texts::tr("This line does the same without a window, as in a script:"), Text(command.line));
}

/// The package of the row at hand once it is there; before, a source that is a drawing itself.
void SelectionWindow::ShowPreview() {
    if (!options_.others.preview || rows_.rowCount() == 0) return;
    int row = qMax(0, form_->lstFiles->currentIndex().row());
    const startup::RowResult& result = rows_.ResultOf(row);
    bool isDone = result.state == startup::RowResult::State::Done;
    QString path = Text(isDone ? result.package : result.source);
    if (isDone || path.endsWith(QLatin1String(".vdf"), Qt::CaseInsensitive))
        options_.others.preview(this, path);
    else
        Say(Texts::tr("The map shows a file once Go has made its package, and drawings"));
}

}  // namespace vexlator::desktop
