// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/ScreenshotViewer.h"

#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/controls/Surfaces.h"
#include "ui/theme/Symbols.h"

#include <QScreen>
#include <QShortcut>

#include <algorithm>

namespace ardeno {

ScreenshotViewer::ScreenshotViewer(const QString &path)
    : m_path(path),
      m_canvas(new ScreenshotCanvas(path)),
      m_percent(makeLabel({})),
      m_tools(makeToolbar()),
      m_unavailable(makeUnavailable())
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Checkpoint screenshot"));
    setWindowIcon(Symbols::brandIcon());
    setMinimumSize(680, 440);
    constexpr QSize wanted(1180, 780);
    constexpr QSize roomForFrame(16, 48);
    resize(wanted.boundedTo(screen()->availableGeometry().size() - roomForFrame));
    auto *column = makeColumn(0, this);
    column->addWidget(m_tools);
    column->addWidget(m_canvas, 1);
    column->addWidget(m_unavailable, 1);
    addShortcut(QKeySequence(Qt::Key_Escape), [this] {
        if (isFullScreen())
            setWindowState(windowState() & ~Qt::WindowFullScreen);
        else
            close();
    });
    addShortcut(QKeySequence(Qt::Key_F11), [this] { setWindowState(windowState() ^ Qt::WindowFullScreen); });
    addShortcut(QKeySequence::Close, [this] { close(); });
    AppTheme::instance().follow(this);
    m_canvas->setOnChange([this] { showState(); });
    m_canvas->setFocus();
    showState();
}

void ScreenshotViewer::closeWithout(const Library &library, const CheckpointMedia &media)
{
    const auto isNamed = [this, &library, &media] {
        const QList<Checkpoint> &all = library.checkpoints();
        return std::any_of(all.begin(), all.end(), [&](const Checkpoint &checkpoint) {
            return checkpoint.screenshot && media.screenshotFile(checkpoint).value_or(QString()) == m_path;
        });
    };
    const auto look = [this, isNamed] {
        if (!isNamed())
            close();
    };
    m_subscriptions = std::make_unique<Subscriptions>();
    m_subscriptions->watch(look, library.checkpoints);
}

QWidget *ScreenshotViewer::makeToolbar()
{
    auto *bar = new Surface(Role::Paper, Qt::BottomEdge);
    bar->setFixedHeight(52);
    auto *row = makeRow(8, bar);
    row->setContentsMargins(24, 0, 24, 0);
    const auto addZoom = [&](const QString &text, const QString &hint, int key, double zoom) {
        auto *button = new Button(text);
        const QKeySequence keys(Qt::CTRL | Qt::Key(key));
        button->setHint(hint, keys.toString(QKeySequence::NativeText));
        connect(button, &QAbstractButton::clicked, this, [this, zoom] { m_canvas->setZoom(zoom); });
        addShortcut(keys, [this, zoom] { m_canvas->setZoom(zoom); });
        row->addWidget(button);
    };
    addZoom(tr("Fit"), tr("Fit the entire screenshot in this window"), Qt::Key_0, ScreenshotScale::fitting);
    addZoom(tr("100%"), tr("Show each screenshot pixel at one point"), Qt::Key_1, ScreenshotScale::actual);
    row->addStretch();
    row->addWidget(makeZoomButton("minus.magnifyingglass", tr("Zoom out"), Qt::CTRL | Qt::Key_Minus,
                                  [this] { m_canvas->zoomOut(); }));
    m_percent->setFont(AppTheme::instance().font(12));
    m_percent->setFixedWidth(45);
    m_percent->setAlignment(Qt::AlignCenter);
    row->addWidget(m_percent);
    row->addWidget(
        makeZoomButton("plus.magnifyingglass", tr("Zoom in"), Qt::CTRL | Qt::Key_Plus, [this] { m_canvas->zoomIn(); }));
    addShortcut(Qt::CTRL | Qt::Key_Equal, [this] { m_canvas->zoomIn(); }); // The key of the plus without shift.
    return bar;
}

Button *ScreenshotViewer::makeZoomButton(const QString &symbol, const QString &name, const QKeySequence &keys,
                                         const std::function<void()> &zoom)
{
    Button *const button = Button::makeIcon(symbol, name, 30);
    button->setToolTip(QString("%1 (%2)").arg(name, keys.toString(QKeySequence::NativeText)));
    connect(button, &QAbstractButton::clicked, this, zoom);
    addShortcut(keys, zoom);
    return button;
}

void ScreenshotViewer::addShortcut(const QKeySequence &keys, std::function<void()> run)
{
    connect(new QShortcut(keys, this), &QShortcut::activated, this, std::move(run));
}

QWidget *ScreenshotViewer::makeUnavailable()
{
    auto *empty = new Surface(Role::Sidebar);
    auto *column = makeColumn(10, empty);
    column->addStretch();
    column->addWidget(new SymbolView("photo", Role::Faint, 44), 0, Qt::AlignHCenter);
    column->addWidget(makeLabel(tr("Screenshot unavailable"), TextStyle::Heading), 0, Qt::AlignHCenter);
    column->addWidget(makeLabel(tr("The saved image could not be found on this Mac."), TextStyle::Body, Role::Dim), 0,
                      Qt::AlignHCenter);
    column->addStretch();
    return empty;
}

void ScreenshotViewer::showState()
{
    const bool isUnavailable = m_canvas->isUnavailable();
    m_canvas->setVisible(!isUnavailable);
    m_unavailable->setVisible(isUnavailable);
    m_tools->setEnabled(!isUnavailable);
    const bool hasScale = m_canvas->isKnown() && !isUnavailable;
    m_percent->setText(hasScale ? QString("%1%").arg(ScreenshotScale::percent(m_canvas->scale())) : QString());
}

ScreenshotViewers::~ScreenshotViewers()
{
    for (const QPointer<ScreenshotViewer> &viewer : m_open)
        delete viewer;
}

ScreenshotViewer *ScreenshotViewers::show(const QString &path)
{
    QPointer<ScreenshotViewer> &viewer = m_open[path];
    if (viewer && viewer->canvas().isUnavailable())
        delete viewer; // It may be readable by now.
    if (!viewer)
        viewer = new ScreenshotViewer(path);
    viewer->setWindowState(viewer->windowState() & ~Qt::WindowMinimized);
    viewer->show();
    viewer->raise();
    viewer->activateWindow();
    return viewer;
}

} // namespace ardeno
