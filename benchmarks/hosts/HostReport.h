// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdio>

namespace velmora::bench {

/// What a host that is measured tells the program that has started it.
class HostReport {
public:
    static long long now() {
        return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch())
            .count();
    }

    template<typename... Numbers>
    static void print(const char *word, Numbers... numbers) {
        std::printf("%s", word);
        (std::printf(" %.17g", double(numbers)), ...);
        std::printf("\n");
        std::fflush(stdout);
    }
};

} // namespace velmora::bench
