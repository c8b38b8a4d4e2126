// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "toolkit/layout/LayoutFrames.h"
#include "toolkit/layout/LayoutRow.h"

namespace marquell::toolkit {

/// What views ask for by themselves in the solver: never less than their smallest size, and by
/// their priorities no smaller and no larger than their content.
class ViewDemands {
public:
    ViewDemands(Simplex& simplex, LayoutFrames& frames);

    /// Makes these the views that may ask for something, and takes back what others asked for.
    void keepOnly(const std::vector<QWidget*>& views);

    /// Measures the views anew. False if one cannot have the room that its content needs.
    bool state();

    void forget(const QWidget* view);

private:
    struct Demands {
        std::optional<LayoutRow> minimum, compression, hugging;
    };
    struct OfView {
        const QWidget* view = nullptr;
        Demands across, down;
    };

    bool demand(Demands& demands, const QWidget* view, Qt::Orientation orientation, double content,
                int minimum);
    bool demandRow(std::optional<LayoutRow>& row, Simplex::Variable length, Relation relation,
                   double constant, Tier tier);
    void withdrawAll(OfView& own);

    Simplex& simplex_;
    LayoutFrames& frames_;
    std::vector<OfView> views_;
};

}  // namespace marquell::toolkit
