// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace marquell::variables {

// Streams of values beside the variables: nothing is observed, values are sent. For one thread.

/// Receives values.
template <typename T>
class SubscriberType {
public:
    virtual ~SubscriberType() = default;
    virtual void next(const T& value) = 0;
};

template <typename T>
class Subscriber : public SubscriberType<T> {
public:
    explicit Subscriber(std::function<void(const T& value)> nextAction)
        : nextAction_(std::move(nextAction)) {}

    void next(const T& value) override { nextAction_(value); }

private:
    std::function<void(const T& value)> nextAction_;
};

/// Anything that one can subscribe to. A stream keeps its subscribers.
template <typename T>
class StreamType {
public:
    virtual ~StreamType() = default;
    virtual void subscribe(std::shared_ptr<Subscriber<T>> subscriber) = 0;
};

template <typename T>
class BaseStream : public StreamType<T> {
public:
    void subscribe(std::shared_ptr<Subscriber<T>> subscriber) override {
        run(std::move(subscriber));
    }

protected:
    /// Begins to deliver values to a new subscriber.
    virtual void run(std::shared_ptr<Subscriber<T>> subscriber) = 0;
};

/// A source of values. A new subscriber receives the latest one at once, if there is any.
template <typename T>
class Producer : public BaseStream<T> {
public:
    void send(T value) {
        latestValue_ = std::move(value);
        const T sent = *latestValue_;  // an action may send, subscribe or unsubscribe
        for (const auto& subscriber : std::vector(subscribers_)) subscriber->next(sent);
    }

    const std::optional<T>& latestValue() const { return latestValue_; }

    void unsubscribe(const std::shared_ptr<Subscriber<T>>& subscriber) {
        std::erase(subscribers_, subscriber);
    }

protected:
    void run(std::shared_ptr<Subscriber<T>> subscriber) override {
        subscribers_.push_back(subscriber);
        if (const auto latest = latestValue_) subscriber->next(*latest);
    }

private:
    std::vector<std::shared_ptr<Subscriber<T>>> subscribers_;
    std::optional<T> latestValue_;
};

/// Sends what a closure makes of each value of another producer, for as long as it lives.
template <typename Input, typename Output>
class Mapper : public Producer<Output> {
public:
    using Closure = std::function<Output(const Input& value)>;

    Mapper(std::shared_ptr<Producer<Input>> source, Closure mapper)
        : source_(std::move(source)),
          sourceSubscriber_(std::make_shared<Subscriber<Input>>(
              // The source may be in the midst of sending when this mapper ends.
              [self = std::weak_ptr(self_), mapper = std::move(mapper)](const Input& value) {
                  if (const auto alive = self.lock()) (*alive)->send(mapper(value));
              })) {
        source_->subscribe(sourceSubscriber_);
    }
    Mapper(const Mapper&) = delete;
    Mapper& operator=(const Mapper&) = delete;
    ~Mapper() override { source_->unsubscribe(sourceSubscriber_); }

private:
    std::shared_ptr<Mapper*> self_ = std::make_shared<Mapper*>(this);  // before its users
    std::shared_ptr<Producer<Input>> source_;
    std::shared_ptr<Subscriber<Input>> sourceSubscriber_;
};

}  // namespace marquell::variables
