// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/Bench.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace ardeno::bench {

namespace {

// A line of /proc/self/status in bytes: "VmHWM:    1234 kB".
double statusBytes(const std::string &key)
{
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        double kilobytes = 0;
        if (word == key + ':' && status >> kilobytes)
            return kilobytes * 1024;
    }
    return 0;
}

// The number that the call makes in a child process.
double numberFromChild(const std::function<double()> &run)
{
    int ends[2];
    if (::pipe(ends) != 0)
        std::abort();
    std::fflush(stdout);
    const pid_t child = ::fork();
    if (child == 0) {
        const double number = run();
        const bool isSent = ::write(ends[1], &number, sizeof number) == sizeof number;
        ::_exit(isSent ? 0 : 1);
    }
    double number = 0;
    int status = 0;
    const bool isRead = ::read(ends[0], &number, sizeof number) == sizeof number;
    ::close(ends[0]);
    ::close(ends[1]);
    if (::waitpid(child, &status, 0) != child || !isRead || status != 0)
        std::abort();
    return number;
}

} // namespace

double secondsOf(const std::function<void()> &run)
{
    const auto start = std::chrono::steady_clock::now();
    run();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

std::vector<double> interleavedMedians(int rounds, const std::vector<std::function<void()>> &runs,
                                       const std::function<void()> &between)
{
    std::vector<std::vector<double>> seconds(runs.size());
    for (int round = 0; round < rounds; ++round) {
        for (size_t i = 0; i < runs.size(); ++i) {
            between();
            seconds[i].push_back(secondsOf(runs[i]));
        }
    }
    std::vector<double> medians;
    medians.reserve(runs.size());
    for (std::vector<double> &each : seconds)
        medians.push_back(medianOf(std::move(each)));
    return medians;
}

double medianOf(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double peakMemoryOf(const std::function<void()> &run)
{
    return numberFromChild([&] {
        const double before = statusBytes("VmRSS");
        run();
        return statusBytes("VmHWM") - before;
    });
}

void inChild(const std::function<void()> &run)
{
    numberFromChild([&] {
        run();
        return 0.0;
    });
}

void Table::add(const QString &figure, const QString &measured, const QString &peer, double ratio, double limit)
{
    if (!m_isHeaded)
        std::printf("%-38s %12s %34s %8s %8s\n", "figure", "measured", "against", "ratio", "limit");
    m_isHeaded = true;
    const bool isMet = ratio <= limit;
    m_missed += isMet ? 0 : 1;
    std::printf("%-38s %12s %34s %8.3f %8.3f  %s\n", qPrintable(figure), qPrintable(measured), qPrintable(peer), ratio,
                limit, isMet ? "met" : "NOT MET");
    std::fflush(stdout);
}

int Table::finish() const
{
    return m_missed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

QString milliseconds(double seconds)
{
    return QString::number(seconds * 1000, 'f', 1) + " ms";
}

QString megabytes(double bytes)
{
    return QString::number(bytes / 1e6, 'f', 1) + " MB";
}

} // namespace ardeno::bench
