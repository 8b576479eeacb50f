// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Scene.h"

#include <QCoreApplication>
#include <QWidget>
#include <functional>
#include <vector>

class QLineEdit;
class QTreeWidget;

namespace vexlator::desktop {

/// The layers of a scene, each with a check box to show or hide it.
class LayerPanel : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(LayerPanel)
public:
    explicit LayerPanel(QWidget* parent = nullptr);

    void SetLayers(std::span<const render::SceneLayer> layers);
    /// By index in the scene's list.
    std::vector<bool> Hidden() const;

    std::function<void()> changed;

private:
    void CheckAll(bool isShown);
    void Filter(const QString& text);

    QLineEdit* search_;
    QTreeWidget* list_;
};

}  // namespace vexlator::desktop
