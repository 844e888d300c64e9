// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/AppStore.h"

#include <QWidget>

namespace ardeno {

// What is to be known until it is dismissed, a strip each: the newest three at a time.
class RemarkStrips final : public QWidget {
public:
    explicit RemarkStrips(AppStore &store, QWidget *parent = nullptr);

private:
    void showRemarks();

    AppStore &m_store;
    Observations m_observations;
};

} // namespace ardeno
