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
        Whole("NUM_OREC", 11);
        Whole("NUM_SREC", 11);
        Whole("NUM_FILE", 1);
        Text("GS_TYPE ", "SECONDS ");
        Text("VERSION ", "1       ");
        Text("SYSTEM_F", "OSGB36  ");
        Text("SYSTEM_T", "ETRS89  ");
        Number("MAJOR_F ", 6377563.396);
        Number("MINOR_F ", 6356256.909);
        Number("MAJOR_T ", 6378137.0);
        Number("MINOR_T ", 6356752.314);
        Text("SUB_NAME", "MIDDLE  ");
        Text("PARENT  ", "NONE    ");
        Text("CREATED ", "        ");
        Text("UPDATED ", "        ");
        Number("S_LAT   ", 51 * 3600);
        Number("N_LAT   ", 53 * 3600);
        Number("E_LONG  ", -3 * 3600);  // longitudes and their shifts are positive to the west
        Number("W_LONG  ", 3 * 3600);
        Number("LAT_INC ", 3600);
        Number("LONG_INC", 3600);
        constexpr int nodes = 3 * 7;
        Whole("GS_COUNT", nodes);
        for (int i = 0; i < nodes; ++i) {
            Raw(northSeconds);
            Raw(-eastSeconds);
            Raw(0.0F);
            Raw(0.0F);
        }
        Number("END     ", 0);
    }
    const std::string& Bytes() const { return bytes_; }

private:
    template <typename T>
    void Raw(T value) {
        char bytes[sizeof value];
        std::memcpy(bytes, &value, sizeof value);
        bytes_.append(bytes, sizeof value);
    }
    void Text(std::string_view name, std::string_view text) { bytes_.append(name).append(text); }
    void Whole(std::string_view name, std::int32_t value) {
        bytes_.append(name);
        Raw(value);
        Raw(std::int32_t{0});
    }
    void Number(std::string_view name, double value) {
        bytes_.append(name);
        Raw(value);
    }

    std::string bytes_;
};

}  // namespace vexlator::test
