// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Painter.h>

#include <array>
#include <memory>

namespace zembra {

class ScaleMap {
public:
    double p1() const { return pixel1; }
    double p2() const { return pixel2; }
    double s1() const { return value1; }
    double s2() const { return value2; }
    double invTransform(double pixel) const;

private:
    friend class Plot;
    double pixel1 = 0.0;
    double pixel2 = 0.0;
    double value1 = 0.0;
    double value2 = 1.0;
    bool isLog = false;
};

#ifndef ZEMBRA_CONTRACT_ONLY
struct Scale {
    bool isLog = false;
    static Scale log() { return {true}; }
};

/// What a host may ask and tell an axis.
struct Axis {
    bool& isAuto;
    bool& isLog;
    bool isAutoScale() const { return isAuto; }
    void setScale(const Scale& scale) { isLog = scale.isLog; }
};
#endif

/// A frame around a curve. It knows no series: its data are a wave, over the x from 0 to 10 and the
/// y from -100 to 100.
class Plot {
public:
    void renderInto(Painter& painter, int width, int height);
    Rect canvasRect() const;
    ScaleMap scaleMap(int axis) const;
    bool axisEnabled(int axis) const;
    void setAxisScale(int axis, double min, double max, double step);
    void setAxisAutoScale(int axis, bool on);

#ifndef ZEMBRA_CONTRACT_ONLY
    void setAxisScale(int axis, double min, double max) {
        setAxisScale(axis, min, max, 0.0);
    }
    void setAxisEnabled(int axis, bool on) {
        axes.at(static_cast<std::size_t>(axis)).isShown = on;
    }
    Axis axis(int axis) {
        auto& state = axes.at(static_cast<std::size_t>(axis));
        return {state.isAuto, state.isLog};
    }
    void setBare(bool on) {
        isBare = on;
    }
#endif

private:
    struct AxisState {
        bool isShown;
        bool isAuto = true;
        bool isLog = false;
        double first;
        double second;
    };
    std::array<AxisState, 4> axes{{
        {.isShown = true, .first = -100.0, .second = 100.0},
        {.isShown = false, .first = -100.0, .second = 100.0},
        {.isShown = true, .first = 0.0, .second = 10.0},
        {.isShown = false, .first = 0.0, .second = 10.0},
    }};
    int laidOutWidth = 0;
    int laidOutHeight = 0;
    bool isBare = false;
};

} // namespace zembra
