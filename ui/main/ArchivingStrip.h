// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/AppStore.h"

#include <QWidget>

class QLabel;

namespace ardeno {

// Which project went to the archive or came from there, and the way back.
class ArchivingStrip final : public QWidget {
public:
    explicit ArchivingStrip(AppStore &store, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showArchiving();

    AppStore &m_store;
    QLabel *m_text;
    Observations m_observations;
};

} // namespace ardeno
