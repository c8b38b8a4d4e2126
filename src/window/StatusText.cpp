// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/StatusText.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "window/Text.h"

namespace marquell::window {
namespace {

using pipeline::OutputOperationTypeEnum;

constexpr const char* context = "status line message";
constexpr std::array sortingTexts{"Sorting items.", "Sorting items..", "Sorting items...",
                                  "Sorting items...."};

/// The localized text with the numbers in the places of its %d, in their order.
QString formatted(const char* english, std::initializer_list<qlonglong> numbers,
                  const QLocale& locale) {
    QString text = localizedText(english, context);
    qsizetype from = 0;
    for (const qlonglong number : numbers) {
        const qsizetype place = text.indexOf(QLatin1String("%d"), from);
        if (place < 0) break;
        const QString digits = locale.toString(number);
        text.replace(place, 2, digits);
        from = place + digits.size();
    }
    return text;
}

QString mainText(const pipeline::OutputEngineViewModel& model, int cycle, const QLocale& locale) {
    const auto processing = static_cast<qlonglong>(model.currentItemProcessing);
    const bool isScanning = model.activeStage == OutputOperationTypeEnum::scanning;
    if (isScanning && !model.indeterminateProgress) {
        return formatted("%d items scanned...", {processing}, locale);
    }
    if (isScanning || model.activeStage == OutputOperationTypeEnum::resorting) {
        return localizedText(sortingTexts.at(static_cast<std::size_t>(cycle)), context);
    }
    if (model.activeStage == OutputOperationTypeEnum::computingOutput) {
        return formatted("Computing output (%d/%d)...",
                         {processing, static_cast<qlonglong>(model.currentNumberOfItems)}, locale);
    }
    return localizedText("Ready.", context);
}

}  // namespace

QString statusText(const pipeline::OutputEngineViewModel& model, int cycle, const QLocale& locale) {
    const auto items = std::max(model.totalItemProcessing, model.currentNumberOfItems);
    return mainText(model, cycle, locale) +
           formatted(" (%d items | %d metadata items). ",
                     {static_cast<qlonglong>(items), model.currentNumberOfMetadataItems}, locale);
}

}  // namespace marquell::window
