// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/ResumeFlow.h"

#include <QTimer>
#include <QWidget>

#include <chrono>

class QLabel;

namespace ardeno {

class Button;

// What a resume that takes long waits for, and the way to stop it.
class ResumeBanner final : public QWidget {
public:
    ResumeBanner(ResumeFlow &resumes, const Library &library, QWidget *parent = nullptr);

    // How long a resume may take before anything is said of it.
    void setPatience(std::chrono::milliseconds patience);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showProgress();
    void appear();
    QString sentence(const ResumeProgress &progress) const;

    ResumeFlow &m_resumes;
    const Library &m_library;
    QLabel *m_text;
    Button *m_stop;
    QTimer m_patience;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
