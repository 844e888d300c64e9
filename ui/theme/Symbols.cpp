// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme/Symbols.h"

#include <QFile>
#include <QIconEngine>
#include <QPixmapCache>
#include <QSvgRenderer>

// Outside of the namespace, as the macro wants it.
static void openSymbolFiles()
{
    Q_INIT_RESOURCE(symbols);
}

namespace ardeno {

namespace {

QString pathOf(const QString &name)
{
    static const bool isOpen = (openSymbolFiles(), true);
    Q_UNUSED(isOpen)
    return ":/symbols/" + name + ".svg";
}

QPixmap rendered(const QString &name, const QSize &pixels, const QColor &color)
{
    QFile file(pathOf(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QSvgRenderer renderer(file.readAll().replace("currentColor", color.name().toLatin1()));
    QPixmap pixmap(pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setOpacity(color.alphaF());
    renderer.render(&painter, QRectF(QPointF(), pixels));
    return pixmap;
}

// A symbol as an icon that is tinted when it is drawn, so that it follows the theme.
class SymbolIconEngine final : public QIconEngine {
public:
    SymbolIconEngine(QString name, Role role) : m_name(std::move(name)), m_role(role) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        Symbols::draw(*painter, m_name, rect, themeColor(mode == QIcon::Disabled ? Role::Faint : m_role));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        return rendered(m_name, size, themeColor(mode == QIcon::Disabled ? Role::Faint : m_role));
    }

    QIconEngine *clone() const override { return new SymbolIconEngine(m_name, m_role); }

private:
    QString m_name;
    Role m_role;
};

class BrandIconEngine final : public QIconEngine {
public:
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode, QIcon::State) override
    {
        Symbols::drawBrandMark(*painter, rect, themeColor(Role::Brand), Qt::white);
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine *clone() const override { return new BrandIconEngine; }
};

} // namespace

void Symbols::draw(QPainter &painter, const QString &name, const QRectF &square, const QColor &color)
{
    const qreal ratio = painter.device()->devicePixelRatio();
    // On whole pixels of the screen, so that thin strokes stay sharp.
    const QTransform toScreen = painter.deviceTransform();
    const QRect pixels(toScreen.map(square.topLeft()).toPoint(), (square.size() * ratio).toSize());
    const QString key = QString("%1/%2/%3").arg(name).arg(pixels.width()).arg(color.rgba());
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = rendered(name, pixels.size(), color);
        QPixmapCache::insert(key, pixmap);
    }
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    const QTransform toLogical = toScreen.inverted();
    pixmap.setDevicePixelRatio(ratio);
    painter.drawPixmap(toLogical.map(QPointF(pixels.topLeft())), pixmap);
    painter.restore();
}

bool Symbols::exists(const QString &name)
{
    return QFile::exists(pathOf(name));
}

QIcon Symbols::icon(const QString &name, Role role)
{
    return QIcon(new SymbolIconEngine(name, role));
}

void Symbols::drawBrandMark(QPainter &painter, const QRectF &square, const QColor &mark, const QColor &background)
{
    // The symbol has a hole where the line is.
    const qreal inset = square.width() / 7;
    painter.fillRect(square.adjusted(inset, inset, -inset, -inset), background);
    draw(painter, "brand", square, mark);
}

QIcon Symbols::brandIcon()
{
    return QIcon(new BrandIconEngine);
}

} // namespace ardeno
