// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/FadeIn.h"

#include "ui/theme/Drawing.h"

#include <QEvent>
#include <QPainter>
#include <QVariantAnimation>

namespace ardeno {

namespace {

std::chrono::milliseconds fadeDuration(150);

// Lies over what appears, and thins out.
class Mist final : public QWidget {
public:
    Mist(QWidget *shown, Role background, qreal radius) : QWidget(shown), m_background(background), m_radius(radius)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_NoSystemBackground);
        setFocusPolicy(Qt::NoFocus);
        setGeometry(shown->rect());
        shown->installEventFilter(this);
        m_thinning.setStartValue(1.0);
        m_thinning.setEndValue(0.0);
        m_thinning.setDuration(static_cast<int>(fadeDuration.count()));
        connect(&m_thinning, &QVariantAnimation::valueChanged, this, [this] { update(); });
        connect(&m_thinning, &QVariantAnimation::finished, this, &QObject::deleteLater);
        m_thinning.start();
        raise();
        show();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setOpacity(m_thinning.currentValue().toDouble());
        if (m_radius > 0)
            Drawing::panel(painter, rect(), m_radius, themeColor(m_background), themeColor(Role::Line));
        else
            painter.fillRect(rect(), themeColor(m_background));
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Resize)
            setGeometry(static_cast<QWidget *>(watched)->rect());
        return QWidget::eventFilter(watched, event);
    }

private:
    Role m_background;
    qreal m_radius;
    QVariantAnimation m_thinning = QVariantAnimation(this);
};

class Follower final : public QObject {
public:
    Follower(QWidget *widget, Role background) : QObject(widget), m_widget(widget), m_background(background)
    {
        widget->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // Not at once: a filter that is added while filters are asked puts this one behind itself, without an end.
        if (event->type() == QEvent::Show)
            QMetaObject::invokeMethod(this, [this] { FadeIn::begin(m_widget, m_background); }, Qt::QueuedConnection);
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget *m_widget;
    Role m_background;
};

} // namespace

void FadeIn::begin(QWidget *shown, Role background, qreal radius)
{
    const bool isStill = AppTheme::instance().appearance().motion == Motion::Reduced || fadeDuration.count() == 0;
    if (!isStill && shown->window()->isVisible())
        new Mist(shown, background, radius); // The widget owns it.
}

void FadeIn::follow(QWidget *widget, Role background)
{
    new Follower(widget, background); // So does this one.
}

void FadeIn::setDuration(std::chrono::milliseconds duration)
{
    fadeDuration = duration;
}

} // namespace ardeno
