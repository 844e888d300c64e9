// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <QStringList>

namespace ardeno::desktop_test {

// A video as other programs see it.
class Video final {
public:
    explicit Video(QString path) : m_path(std::move(path)) {}

    QString codec() const { return probe("stream=codec_name"); }

    QSize size() const { return {probe("stream=width").toInt(), probe("stream=height").toInt()}; }

    double seconds() const { return probe("format=duration").toDouble(); }

    // How many pictures it holds; 0 also when it cannot be played.
    int frames() const { return probe("stream=nb_read_packets", {"-count_packets"}).toInt(); }

    // What a player complains about.
    QString problems() const;
    // The picture that is shown at this second.
    QImage frameAt(double second) const;
    // All of them.
    QList<QImage> pictures() const;

private:
    QString probe(const QString &entry, const QStringList &options = {}) const;

    QString m_path;
};

} // namespace ardeno::desktop_test
