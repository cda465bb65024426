#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <functional>
#include <vector>

// The median of `runs` timings of a step, each until the screen has painted after it: what a
// user waits for in the windows, for the programs that time them.
inline double medianScreenMs(int runs, const std::function<void(int run)> &step)
{
    std::vector<double> ms;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer t;
        t.start();
        step(i);
        QApplication::processEvents();
        ms.push_back(double(t.nsecsElapsed()) / 1e6);
    }
    std::sort(ms.begin(), ms.end());
    return ms[ms.size() / 2];
}
