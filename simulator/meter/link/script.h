#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>
#include <vector>

namespace meter {

/// A scenario in a file: control lines, each after the second at which it is carried out.
///
///     # a sag of three seconds while the phasors are shown
///     0 navigate 68
///     10 scenario sag
///     13 scenario normal
class Script {
public:
    Script() = default;
    /// @throws std::runtime_error that names the line which is no step, or comes before the step above it
    explicit Script(std::istream& text);

    /// Puts a line in its place; of the same time, behind those that are there.
    void Add(std::int64_t milliseconds, std::string line);

    /// The lines that became due since the last call, in their order.
    std::vector<std::string> TakeDue(std::int64_t milliseconds);

private:
    struct Step {
        std::int64_t milliseconds;
        std::string line;
    };

    std::vector<Step> m_steps;
    std::size_t m_next = 0;
};

}  // namespace meter
