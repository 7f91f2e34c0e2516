// SPDX-License-Identifier: MIT
#pragma once

#include <ZembraGraphicsView.h>
#include <zembra/zembra.h>

#include <QMainWindow>

#include <cmath>
#include <limits>
#include <memory>
#include <vector>

/// What the snippets of the documents find in place.
struct Page {
    std::shared_ptr<zembra::Plot> plot;
    zembra::ZembraGraphicsView* view = nullptr;
    QMainWindow* window = nullptr;
    std::vector<double> x = {0.0, 1.0, 2.0};
    std::vector<double> y = {1.0, 3.0, 2.0};
    std::shared_ptr<zembra::LineSeries> line;
};

/// A piece of code from a document.
struct Snippet {
    /// "FILE:LINE"
    const char* place = "";
    void (*run)(Page& page) = nullptr;
};

/// All of them, in the order of the documents.
std::vector<Snippet> allSnippets();
