// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/DrawnTexts.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QWidget>

namespace ardeno {

namespace {

// Keeps what is written and draws nothing.
class TextEngine final : public QPaintEngine {
public:
    TextEngine() : QPaintEngine(AllFeatures) {}

    bool begin(QPaintDevice *) override { return true; }

    bool end() override { return true; }

    void updateState(const QPaintEngineState &) override {}

    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}

    void drawImage(const QRectF &, const QImage &, const QRectF &, Qt::ImageConversionFlags) override {}

    void drawPath(const QPainterPath &) override {}

    void drawPolygon(const QPointF *, int, PolygonDrawMode) override {}

    void drawTextItem(const QPointF &, const QTextItem &item) override { texts += item.text(); }

    Type type() const override { return User; }

    QStringList texts;
};

class TextDevice final : public QPaintDevice {
public:
    explicit TextDevice(const QWidget &widget) : m_widget(widget) {}

    QPaintEngine *paintEngine() const override { return &m_engine; }

    const QStringList &texts() const { return m_engine.texts; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_widget.width();
        case PdmHeight:
            return m_widget.height();
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        case PdmDpiX:
        case PdmPhysicalDpiX:
            return m_widget.logicalDpiX();
        case PdmDpiY:
        case PdmPhysicalDpiY:
            return m_widget.logicalDpiY();
        default:
            return QPaintDevice::metric(metric);
        }
    }

private:
    const QWidget &m_widget;
    mutable TextEngine m_engine;
};

} // namespace

QStringList drawnTexts(QWidget &widget)
{
    TextDevice device(widget);
    widget.render(&device, {}, {}, QWidget::DrawChildren);
    return device.texts();
}

} // namespace ardeno
