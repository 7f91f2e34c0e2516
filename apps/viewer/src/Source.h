// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

namespace viewer {

/// Where a table comes from: a file, or a text that is there already. A cheap value.
struct Source {
    /// The path of the file, "-" for standard input; for a text what messages call it.
    std::string name;
    /// Null for files.
    std::shared_ptr<const std::string> text = nullptr;
};

} // namespace viewer
