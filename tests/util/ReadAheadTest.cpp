// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/ReadAhead.h"

#include <atomic>
#include <gtest/gtest.h>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace vexlator::util {

using Numbers = std::vector<int>;
using NumbersAhead = ReadAhead<Numbers>;

/// Fills batches of `size` with 0, 1, 2 ... up to `end`, then throws an error if `fails`.
NumbersAhead::Fill CountTo(int end, int size, bool fails = false) {
    return [=, next = 0](Numbers& batch) mutable {
        for (batch.clear(); static_cast<int>(batch.size()) < size; batch.push_back(next++)) {
            if (next < end) continue;
            if (fails) throw std::runtime_error("after " + std::to_string(end));
            return false;
        }
        return true;
    };
}

TEST(ReadAhead, GivesEveryBatchInOrderAndUsesItAgain) {
    struct Case {
        int end, size;
        std::size_t batches;
    };
    for (const Case& c :
         {Case{10'000, 7, 3}, Case{10'000, 1, 2}, Case{500, 10, 1}, Case{5, 10, 3}, Case{0, 10, 3}}) {
        NumbersAhead ahead(CountTo(c.end, c.size), c.batches);
        int expected = 0;
        std::set<const Numbers*> batches;
        while (const Numbers* batch = ahead.Next()) {
            batches.insert(batch);
            for (int number : *batch) ASSERT_EQ(number, expected++);
        }
        EXPECT_EQ(expected, c.end);
        EXPECT_LE(batches.size(), c.batches);
        EXPECT_EQ(ahead.Next(), nullptr);
    }
}

TEST(ReadAhead, ThrowsAfterWhatCameBefore) {
    for (int end : {0, 3, 10, 57}) {
        NumbersAhead ahead(CountTo(end, 10, true));
        int seen = 0;
        std::string error;
        try {
            while (const Numbers* batch = ahead.Next()) seen += static_cast<int>(batch->size());
        } catch (const std::runtime_error& thrown) {
            error = thrown.what();
        }
        EXPECT_EQ(seen, end);
        EXPECT_EQ(error, "after " + std::to_string(end));
        EXPECT_THROW(ahead.Next(), std::runtime_error) << "once more";
    }
}

TEST(ReadAhead, StopsWhenNobodyTakesMore) {
    for (int taken : {0, 1, 5}) {
        std::atomic<int> filled = 0;
        {
            ReadAhead<int> ahead([&](int& batch) {
                batch = ++filled;
                return true;
            });
            for (int i = 1; i <= taken; ++i) EXPECT_EQ(*ahead.Next(), i);
        }
        EXPECT_GE(filled, taken);
        EXPECT_LE(filled, taken + 3);
    }
}

}  // namespace vexlator::util
