// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "metadata/MetadataSource.h"

namespace marquell::metadata {

/// Told on the main thread that a source has finished with the node that it waits for.
class DataIsReadyObserver {
public:
    virtual ~DataIsReadyObserver() = default;
    virtual void update(MetadataSource source) = 0;
};

/// A place in a node's list of observers. It doesn't keep its observer alive: a cell that goes away
/// isn't held by a pending request. Emptied when the observer has been told.
struct WeakDataIsReadyObserverReference {
    explicit WeakDataIsReadyObserverReference(const std::shared_ptr<DataIsReadyObserver>& told)
        : observer(told), identity(told.get()) {}

    std::weak_ptr<DataIsReadyObserver> observer;
    const DataIsReadyObserver* identity;  ///< for comparison, also when the observer has ended
};

}  // namespace marquell::metadata
