// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Memory.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

namespace vexlator::drawing {

/// A growing array of plain, uninitialised values: for the arrays of a drawing, which reach hundreds of
/// megabytes. It grows without copying, and the old and new block never exist side by side.
template <typename T>
class PodVector {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    PodVector() = default;
    ~PodVector() { platform::FreeBlock(data_, capacity_ * sizeof(T)); }
    PodVector(PodVector&& other) noexcept { *this = std::move(other); }
    PodVector& operator=(PodVector&& other) noexcept {
        std::swap(data_, other.data_);
        std::swap(size_, other.size_);
        std::swap(capacity_, other.capacity_);
        return *this;
    }
    PodVector(const PodVector&) = delete;
    PodVector& operator=(const PodVector&) = delete;

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    T* data() { return data_; }
    const T* data() const { return data_; }
    T& operator[](std::size_t i) { return data_[i]; }
    const T& operator[](std::size_t i) const { return data_[i]; }
    T& back() { return data_[size_ - 1]; }

    /// Room for `more` values after the last one.
    void reserveMore(std::size_t more) {
        if (more > capacity_ - size_) grow(more);
    }
    void push_back(const T& value) {
        if (size_ == capacity_) grow(1);
        data_[size_++] = value;
    }
    /// Adds `count` uninitialised values; returns the first.
    T* extend(std::size_t count) {
        reserveMore(count);
        T* first = data_ + size_;
        size_ += count;
        return first;
    }
    void append(std::span<const T> values) {
        if (!values.empty()) std::memcpy(extend(values.size()), values.data(), values.size_bytes());
    }
    void truncate(std::size_t size) { size_ = size; }

private:
    void grow(std::size_t more) {
        std::size_t capacity = std::max(size_ + more, capacity_ + capacity_ / 2 + 16);
        if (capacity > static_cast<std::size_t>(-1) / sizeof(T)) throw std::bad_alloc();
        data_ = static_cast<T*>(platform::ResizeBlock(data_, capacity_ * sizeof(T), capacity * sizeof(T)));
        capacity_ = capacity;
    }

    T* data_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace vexlator::drawing
