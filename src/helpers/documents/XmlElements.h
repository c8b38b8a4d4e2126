// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace marquell::helpers {

// Documents are as deep as their authors like, so nothing here calls itself. Names are local ones:
// which prefix stands for which vocabulary differs, and no vocabularies meet here that have the
// same name for different things.

/// Parses without entities but the five of XML, and whatever declares others. Of a broken document
/// what precedes the fault is there. The texts in it are not yet clean.
void parseXml(pugi::xml_document& document, std::string_view bytes);

/// Without the prefix.
std::string_view localName(std::string_view name);

/// The first such attribute, by local name; empty if there is none.
std::string_view attributeOf(pugi::xml_node element, std::string_view name);

/// The node behind this one below the root, in the order of the text; null at the end.
pugi::xml_node nodeAfter(pugi::xml_node node, pugi::xml_node root, bool entersChildren);

/// The texts in the element and below it, a line for each element, as clean UTF-8.
std::string textOf(pugi::xml_node element);

/// Calls `visit(element)` for the elements below the root in the order of the text, but not for
/// those below one for which it returned true.
template <typename Visit>
void forEachElement(pugi::xml_node root, Visit visit) {
    pugi::xml_node node = root.first_child();
    while (node) {
        const bool isDone = node.type() == pugi::node_element && visit(node);
        node = nodeAfter(node, root, !isDone);
    }
}

/// The first element of the name below the root; null if there is none.
pugi::xml_node findElement(pugi::xml_node root, std::string_view name);

}  // namespace marquell::helpers
