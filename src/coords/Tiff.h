// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LateLibrary.h"

#include <tiffio.h>

/// The functions of the TIFF library that are used here, which the projection library brings with it.
namespace vexlator::coords {

template <typename Signature>
using TiffFunction = platform::LateFunction<Signature>;

inline const TiffFunction<decltype(::TIFFClose)> TIFFClose{VEXLATOR_TIFF_LIBRARY, "TIFFClose"};
inline const TiffFunction<decltype(::TIFFGetStrileByteCount)> TIFFGetStrileByteCount{
    VEXLATOR_TIFF_LIBRARY, "TIFFGetStrileByteCount"};
inline const TiffFunction<decltype(::TIFFGetStrileOffset)> TIFFGetStrileOffset{VEXLATOR_TIFF_LIBRARY,
                                                                               "TIFFGetStrileOffset"};
inline const TiffFunction<decltype(::TIFFIsTiled)> TIFFIsTiled{VEXLATOR_TIFF_LIBRARY, "TIFFIsTiled"};
inline const TiffFunction<decltype(::TIFFNumberOfStrips)> TIFFNumberOfStrips{VEXLATOR_TIFF_LIBRARY,
                                                                             "TIFFNumberOfStrips"};
inline const TiffFunction<decltype(::TIFFNumberOfTiles)> TIFFNumberOfTiles{VEXLATOR_TIFF_LIBRARY,
                                                                           "TIFFNumberOfTiles"};
inline const TiffFunction<decltype(::TIFFOpen)> TIFFOpen{VEXLATOR_TIFF_LIBRARY, "TIFFOpen"};
inline const TiffFunction<decltype(::TIFFReadDirectory)> TIFFReadDirectory{VEXLATOR_TIFF_LIBRARY,
                                                                           "TIFFReadDirectory"};
inline const TiffFunction<decltype(::TIFFSetErrorHandler)> TIFFSetErrorHandler{VEXLATOR_TIFF_LIBRARY,
                                                                               "TIFFSetErrorHandler"};
inline const TiffFunction<decltype(::TIFFSetWarningHandler)> TIFFSetWarningHandler{VEXLATOR_TIFF_LIBRARY,
                                                                                   "TIFFSetWarningHandler"};

}  // namespace vexlator::coords
