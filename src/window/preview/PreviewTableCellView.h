// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "metadata/DataIsReadyObserver.h"
#include "pipeline/Node.h"
#include "toolkit/tables/TableCellView.h"

namespace marquell::window {

/// One value of one node. Where the value is still to come the cell shows a placeholder, and
/// refills itself when it is told. Held by shared_ptr, since nodes hold their observers weakly.
class PreviewTableCellView : public toolkit::TableCellView,
                             public metadata::DataIsReadyObserver,
                             public std::enable_shared_from_this<PreviewTableCellView> {
public:
    enum class State { waiting, present, empty };

    /// Asks the node for the value, and has itself told if the value is still to come. Does nothing
    /// without node and key.
    void configureLabel();

    void update(metadata::MetadataSource source) override;

    bool isComplete() const override { return state != State::waiting; }
    /// What is in view comes before what was scrolled to meanwhile.
    void viewMoved() override;

    State state = State::waiting;
    std::shared_ptr<pipeline::Node> node;
    std::optional<std::string> valueKey;

protected:
    void setLabelColors(bool highlighted) override;

private:
    void setText(const QString& text, State newState);
};

}  // namespace marquell::window
