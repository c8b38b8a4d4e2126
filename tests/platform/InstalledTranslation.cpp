// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/InstalledTranslation.h"

#include <libintl.h>

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <map>
#include <system_error>

namespace marquell::tests {

namespace {

constexpr const char* domain = "marquell";

/// The bytes of a compiled message catalogue: a header of seven words, a table of (length, offset)
/// for the sorted keys, another for their translations, then the texts.
std::string compiledCatalogue(const std::map<std::string, std::string>& texts) {
    const auto count = static_cast<std::uint32_t>(texts.size());
    const std::uint32_t keyTable = 28;
    const std::uint32_t translationTable = keyTable + 8 * count;
    const std::uint32_t textStart = translationTable + 8 * count;
    std::string tables, translations, bytes;
    const auto addWord = [](std::string& out, std::uint32_t word) {
        out.append(reinterpret_cast<const char*>(&word), sizeof word);
    };
    const auto addText = [&](std::string& table, const std::string& text) {
        addWord(table, static_cast<std::uint32_t>(text.size()));
        addWord(table, textStart + static_cast<std::uint32_t>(bytes.size()));
        bytes.append(text.c_str(), text.size() + 1);
    };
    for (const std::uint32_t word : {0x950412deU, 0U, count, keyTable, translationTable, 0U, 0U}) {
        addWord(tables, word);
    }
    for (const auto& [key, translation] : texts) {
        addText(tables, key);
        addText(translations, translation);
    }
    return tables + translations + bytes;
}

std::filesystem::path makeFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "translation-XXXXXX").string();
    return mkdtemp(pattern.data());
}

}  // namespace

// NOLINTBEGIN(concurrency-mt-unsafe): the header asks for a process without other threads.
InstalledTranslation::InstalledTranslation(std::initializer_list<TranslatedText> texts)
    : folder_(makeFolder()),
      earlierLocale_(std::setlocale(LC_ALL, nullptr)),
      earlierFolder_(bindtextdomain(domain, nullptr)) {
    std::map<std::string, std::string> entries{{"", "Content-Type: text/plain; charset=UTF-8\n"}};
    for (const auto& [context, english, translation] : texts) {
        entries.emplace(std::string(context) + '\004' + english, translation);
    }
    const auto messages = folder_ / "de" / "LC_MESSAGES";
    std::filesystem::create_directories(messages);
    std::ofstream(messages / "marquell.mo", std::ios::binary) << compiledCatalogue(entries);
    std::setlocale(LC_ALL, "C.UTF-8");
    setenv("LANGUAGE", "de", 1);
    bindtextdomain(domain, folder_.c_str());
}

InstalledTranslation::~InstalledTranslation() {
    unsetenv("LANGUAGE");
    std::setlocale(LC_ALL, earlierLocale_.c_str());
    bindtextdomain(domain, earlierFolder_.c_str());
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}
// NOLINTEND(concurrency-mt-unsafe)

}  // namespace marquell::tests
