// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLabel;

namespace ardeno {

class SymbolView;

// What stands where a list has nothing to show: a symbol with a sentence below it, in the middle.
class EmptyState final : public QWidget {
public:
    EmptyState(const QString &symbol, const QString &sentence, int space, QWidget *parent = nullptr);

    void show(const QString &symbol, const QString &sentence);

private:
    SymbolView *m_symbol;
    QLabel *m_sentence;
};

} // namespace ardeno
