// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exiv2/exiv2.hpp>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace marquell::helpers {

/// The values of a packet of XMP, which must live as long, by the library's names for them.
class XmpValues {
public:
    explicit XmpValues(const Exiv2::XmpData& xmp);

    /// The texts of a value, none of them empty; of one in several languages that of the default.
    std::vector<std::string> textsOf(std::string_view name) const;

private:
    std::map<std::string, const Exiv2::Value*, std::less<>> values_;
};

}  // namespace marquell::helpers
