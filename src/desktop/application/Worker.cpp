// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/application/Worker.h"

#include <utility>

namespace vexlator::desktop {

Worker::Worker(Conversation& conversation, std::function<void()> work, std::function<void()> ended)
    : conversation_(conversation) {
    conversation_.Reset();
    thread_ = std::thread([this, work = std::move(work), ended = std::move(ended)] {
        work();
        QMetaObject::invokeMethod(&window_, ended, Qt::QueuedConnection);
    });
}

Worker::~Worker() {
    conversation_.Abandon();
    thread_.join();
}

}  // namespace vexlator::desktop
