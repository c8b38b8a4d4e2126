// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/documents/XmlElements.h"

#include "helpers/common/DecodedText.h"

namespace marquell::helpers {

void parseXml(pugi::xml_document& document, std::string_view bytes) {
    constexpr unsigned options = pugi::parse_escapes | pugi::parse_cdata | pugi::parse_eol;
    // How it ended is of no matter: either there are elements or not.
    static_cast<void>(document.load_buffer(bytes.data(), bytes.size(), options));
}

std::string_view localName(std::string_view name) { return name.substr(name.find(':') + 1); }

std::string_view attributeOf(pugi::xml_node element, std::string_view name) {
    for (const pugi::xml_attribute attribute : element.attributes()) {
        if (localName(attribute.name()) == name) return attribute.value();
    }
    return {};
}

pugi::xml_node nodeAfter(pugi::xml_node node, pugi::xml_node root, bool entersChildren) {
    if (entersChildren && node.first_child()) return node.first_child();
    while (node && node != root) {
        if (node.next_sibling()) return node.next_sibling();
        node = node.parent();
    }
    return {};
}

std::string textOf(pugi::xml_node element) {
    std::string text;
    for (pugi::xml_node node = element.first_child(); node; node = nodeAfter(node, element, true)) {
        const bool isText = node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
        text.append(isText ? node.value() : "\n");
    }
    return decodedText(text, Charset::likely);
}

pugi::xml_node findElement(pugi::xml_node root, std::string_view name) {
    for (pugi::xml_node node = root.first_child(); node; node = nodeAfter(node, root, true)) {
        if (localName(node.name()) == name) return node;
    }
    return {};
}

}  // namespace marquell::helpers
