// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Disposal.h"

#include <utility>

#include "platform/OperationQueue.h"

namespace marquell::platform {
namespace {

class DisposalOperation : public Operation {
public:
    explicit DisposalOperation(std::shared_ptr<void> object) : object_(std::move(object)) {}

    void main() override { object_.reset(); }

private:
    std::shared_ptr<void> object_;
};

}  // namespace

void disposeOnWorker(std::shared_ptr<void> object) {
    static OperationQueue queue("disposal");
    // Without a thread the object goes right here, with the operation.
    static_cast<void>(queue.addOperation(std::make_shared<DisposalOperation>(std::move(object))));
}

}  // namespace marquell::platform
