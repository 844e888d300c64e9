// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/AppStore.h"

#include <QComboBox>

namespace ardeno {

// The project of the form: one of those there are, or a new one.
class ProjectChoice final : public QComboBox {
public:
    explicit ProjectChoice(AppStore &store);

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

    void showPopup() override;

protected:
    void paintEvent(QPaintEvent *event) override;
    // The wheel belongs to the form around it.
    void wheelEvent(QWheelEvent *event) override;

private:
    void showProjects();
    void choose(int row);

    AppStore &m_store;
    Observations m_observations;
};

} // namespace ardeno
