// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <vector>

// What the benchmark programs share: medians of interleaved runs, memory of a child, and the table of results.
namespace ardeno::bench {

// Seconds that one call takes.
double secondsOf(const std::function<void()> &run);

// The median of each run's seconds. The runs take turns, so that a slow moment of the machine meets them all.
// What happens between them is not counted.
std::vector<double> interleavedMedians(
    int rounds, const std::vector<std::function<void()>> &runs, const std::function<void()> &between = [] {});

double medianOf(std::vector<double> values);

// How many bytes of memory the call needs at its peak, measured in a child process. Call it while the program is still
// small, because memory that was freed before would be used again unseen.
double peakMemoryOf(const std::function<void()> &run);

// Runs the call in a child process, which must not fail.
void inChild(const std::function<void()> &run);

// A result below or at the limit is met.
class Table final {
public:
    // Prints one line: what was measured, against what, their ratio and the limit of it.
    void add(const QString &figure, const QString &measured, const QString &peer, double ratio, double limit);

    // The exit status: 0 when every limit is met.
    int finish() const;

private:
    bool m_isHeaded = false;
    int m_missed = 0;
};

QString milliseconds(double seconds);
QString megabytes(double bytes);

} // namespace ardeno::bench
