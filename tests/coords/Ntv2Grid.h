// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace vexlator::test {

/// The bytes of an NTv2 file: one grid over 51 to 53 degrees north and 3 west to 3 east, a node at every
/// whole degree, all with the same shift in seconds (north and east positive).
class Ntv2Grid {
public:
    Ntv2Grid(float northSeconds, float eastSeconds) {
        constexpr int nodes = 3 * 7;
        for (auto [name, value] : {Field{"NUM_OREC", 11}, {"NUM_SREC", 11}, {"NUM_FILE", 1}})
            Whole(name, value);
        bytes_ += "GS_TYPE SECONDS VERSION 1       SYSTEM_FOSGB36  SYSTEM_TETRS89  ";
        for (auto [name, value] : {Field{"MAJOR_F ", 6377563.396},
                                   {"MINOR_F ", 6356256.909},
                                   {"MAJOR_T ", 6378137.0},
                                   {"MINOR_T ", 6356752.314}})
            Number(name, value);
        bytes_ += "SUB_NAMEMIDDLE  PARENT  NONE    CREATED         UPDATED         ";
        // Longitudes and their shifts are positive to the west.
        for (auto [name, value] : {Field{"S_LAT   ", 51 * 3600},
                                   {"N_LAT   ", 53 * 3600},
                                   {"E_LONG  ", -3 * 3600},
                                   {"W_LONG  ", 3 * 3600},
                                   {"LAT_INC ", 3600},
                                   {"LONG_INC", 3600}})
            Number(name, value);
        Whole("GS_COUNT", nodes);
        for (int i = 0; i < nodes; ++i)
            for (float shift : {northSeconds, -eastSeconds, 0.0F, 0.0F}) Raw(shift);
        Number("END     ", 0);
    }
    const std::string& Bytes() const { return bytes_; }

private:
    struct Field {
        std::string_view name;
        double value;
    };
    template <typename T>
    void Raw(T value) {
        char bytes[sizeof value];
        std::memcpy(bytes, &value, sizeof value);
        bytes_.append(bytes, sizeof value);
    }
    void Whole(std::string_view name, double value) {
        bytes_.append(name);
        Raw(static_cast<std::int32_t>(value));
        Raw(std::int32_t{0});
    }
    void Number(std::string_view name, double value) {
        bytes_.append(name);
        Raw(value);
    }

    std::string bytes_;
};

}  // namespace vexlator::test
