#pragma once

#include <string>
#include <string_view>

// The bytes of an SVG document. Coordinates have two decimals at most and no locale,
// so that equal pictures are equal files.

namespace vorn::kit {

// Text as it may stand in XML, in elements and attributes. Bytes that are no UTF-8
// and characters that XML has no room for become U+FFFD.
[[nodiscard]] std::string escape_markup(std::string_view text);

// A coordinate: "12", "12.5", "0.25".
void append_coordinate(std::string& bytes, double value);

class SvgWriter {
public:
    void raw(std::string_view markup) { bytes_ += markup; }

    // `classes` are those of the theme.
    void text(double x, double y, std::string_view classes, std::string_view text);
    void rectangle(double x, double y, double width, double height, std::string_view classes);
    void line(double x1, double y1, double x2, double y2, std::string_view classes);
    // `attributes` as written, with a blank before each; `path` is the value of "d".
    void path(std::string_view classes, std::string_view attributes, std::string_view path);
    void open_group(std::string_view classes, std::string_view label);
    void close_group() { bytes_ += "</g>\n"; }

    std::string take() { return std::move(bytes_); }

private:
    void coordinate(std::string_view name, double value);

    std::string bytes_;
};

}  // namespace vorn::kit
