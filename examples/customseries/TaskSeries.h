// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/series/Canvas.h>
#include <zembra/series/Series.h>

#include <algorithm>
#include <vector>

/// Something that takes a row of a chart from one moment to another. Units: data units.
struct Task {
    int row = 0;
    double begin = 0.0;
    double end = 0.0;
};

/// Tasks as bars that lie in their rows, in a plot like any other series.
class TaskSeries : public zembra::Series {
public:
    TaskSeries(std::vector<Task> content, std::string name) : tasks(std::move(content)) {
        setName(std::move(name));
    }

    // What automatic ranges have to cover. The scales tell what they can place.
    zembra::Bounds bounds(const zembra::Scale& x, const zembra::Scale& y) const override {
        zembra::Bounds covered;
        for (const Task& task : tasks) {
            if (!x.contains(task.begin) || !x.contains(task.end) || !y.contains(task.row))
                continue;
            covered.x.include(task.begin);
            covered.x.include(task.end);
            covered.y.include(task.row);
        }
        return covered;
    }

    // The canvas maps values to pixels and clips what is drawn.
    void draw(zembra::Canvas& canvas) const override {
        for (const Task& task : tasks) {
            const zembra::Point from = canvas.toPixel(task.begin, task.row);
            const zembra::Point to = canvas.toPixel(task.end, task.row);
            drawBar(canvas, {std::min(from.x, to.x), from.y - thickness / 2.0,
                             std::abs(to.x - from.x), thickness});
        }
    }

    void drawLegendKey(zembra::Canvas& canvas, const zembra::Rect& area) const override {
        drawBar(canvas, area.grown(-1.0));
    }

private:
    static constexpr double thickness = 18.0;

    static void drawBar(zembra::Canvas& canvas, const zembra::Rect& bar) {
        canvas.fillRect(bar, canvas.look().color.withAlpha(170));
        canvas.drawRect(bar, zembra::Pen(canvas.look().color));
    }

    std::vector<Task> tasks;
};
