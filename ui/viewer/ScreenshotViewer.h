// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/CheckpointMedia.h"
#include "ui/viewer/ScreenshotCanvas.h"

#include <QCoreApplication>
#include <QHash>
#include <QLabel>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>

namespace ardeno {

class Button;

// A window of its own with a checkpoint's screenshot. It deletes itself when it is closed.
class ScreenshotViewer final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ScreenshotViewer)

public:
    explicit ScreenshotViewer(const QString &path);

    ScreenshotCanvas &canvas() { return *m_canvas; }

    // Closes as soon as no checkpoint has this picture any more.
    void closeWithout(const Library &library, const CheckpointMedia &media);

private:
    QWidget *makeToolbar();
    Button *makeZoomButton(const QString &symbol, const QString &name, const QKeySequence &keys,
                           const std::function<void()> &zoom);
    QWidget *makeUnavailable();
    void addShortcut(const QKeySequence &keys, std::function<void()> run);
    void showState();

    QString m_path;
    ScreenshotCanvas *m_canvas;
    QLabel *m_percent;
    QWidget *m_tools;
    QWidget *m_unavailable;
    std::unique_ptr<Subscriptions> m_subscriptions;
};

// The viewers that are open: one window for a picture.
class ScreenshotViewers final {
public:
    ScreenshotViewers() = default;
    ~ScreenshotViewers();
    ScreenshotViewers(const ScreenshotViewers &) = delete;
    ScreenshotViewers &operator=(const ScreenshotViewers &) = delete;

    // Opens one, or brings the one that is open to the front.
    ScreenshotViewer *show(const QString &path);

private:
    QHash<QString, QPointer<ScreenshotViewer>> m_open;
};

} // namespace ardeno
