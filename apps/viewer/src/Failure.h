// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace viewer {

/// Ends the program with one line for the user and an exit code. Thrown inside the program only.
class Failure : public std::runtime_error {
public:
    enum class Kind {
        /// A bad file, column or option: exit code 2.
        BadInput,
        /// A picture that could not be written: exit code 1.
        CannotWrite,
        /// A file that the memory does not hold: exit code 1.
        NoMemory,
    };

    explicit Failure(const std::string& text, Kind kind = Kind::BadInput)
        : std::runtime_error(text), failureKind(kind) {}

    Kind kind() const { return failureKind; }
    int exitCode() const { return failureKind == Kind::BadInput ? 2 : 1; }

private:
    Kind failureKind;
};

} // namespace viewer
