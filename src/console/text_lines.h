#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zev {

/// Display lines in order, each with an appended line feed.
class TextLines {
public:
    /// Makes room for `units` code units of lines. Like `append`, throws std::bad_alloc when memory is short.
    void reserve(std::size_t units) { units_.reserve(units); }

    void append(std::u16string_view line) {
        units_.append(line).push_back(u'\n');
        ends_.push_back(units_.size());
    }

    [[nodiscard]] std::size_t size() const { return ends_.size(); }

    /// A line with its line feed; it is followed by the next one. Holds until the next `append`.
    [[nodiscard]] std::u16string_view operator[](std::size_t index) const {
        const std::size_t begin = index > 0 ? ends_[index - 1] : 0;
        return std::u16string_view(units_).substr(begin, ends_[index] - begin);
    }

    friend bool operator==(const TextLines&, const TextLines&) = default;

private:
    std::u16string units_;           ///< of all lines, one after the other
    std::vector<std::size_t> ends_;  ///< where each line ends in `units_`
};

}  // namespace zev
