// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QImage>

#include <atomic>
#include <memory>

namespace ardeno {

// A picture scaled to the width it gets, read away from the main thread. Where it can be enlarged it is a button with a
// hint while the pointer is over it.
class ScreenshotImage final : public QAbstractButton {
public:
    enum class Enlarging { No, Yes };

    // Where the file is missing or cannot be read it says so, once that is known.
    ScreenshotImage(const QString &path, Enlarging enlarging, QWidget *parent = nullptr);
    ~ScreenshotImage() override;
    ScreenshotImage(const ScreenshotImage &) = delete;
    ScreenshotImage &operator=(const ScreenshotImage &) = delete;

    // Shown until the picture itself has been read.
    void setPreview(const QImage &preview);

    // The picture is scaled to fit into the width and this height, in logical pixels.
    void setMostHeight(int height);

    bool isUnavailable() const { return m_isUnavailable; }

    bool isShown() const { return !m_image.isNull(); }

    QSize sizeHint() const override;

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    // What the picture takes of a room of this width.
    QSize shownSize(int width) const;
    // Where the picture is.
    QRectF shownArea() const;
    void readSize();
    void setUnavailable();
    void read();
    void take(const QImage &image);
    void drawHint(QPainter &painter);
    void drawUnavailable(QPainter &painter);

    QString m_path;
    QSize m_fullSize; // Pixels of the file; empty until it has answered.
    QImage m_image;   // As large as it is drawn.
    QImage m_preview;
    std::shared_ptr<std::atomic<bool>> m_isWanted; // What is being read.
    int m_askedWidth = 0;
    int m_mostHeight = QWIDGETSIZE_MAX;
    bool m_isUnavailable = false;
    bool m_showsFocus = false;
};

} // namespace ardeno
