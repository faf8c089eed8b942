#!/usr/bin/python3
"""Writes real_dicom_files.h: what the images of Debian's python3-pydicom hold, as other programs read them.

pydicom and Pillow read most of them; gdcmconv (libgdcm-tools) unpacks what these cannot. The sums are of stored values,
or of red, green and blue with 8 bits each; in the second one each value counts 1 to 997 times, by its place.
"""
import io
import pathlib
import subprocess
import tempfile
import warnings

import numpy
import pydicom
from PIL import Image

warnings.filterwarnings("ignore")
FOLDER = pathlib.Path(pydicom.__file__).parent / "data" / "test_files"
JPEG_BASELINE = "1.2.840.10008.1.2.4.50"


def unpacked(path):
    """The pixels of what pydicom cannot unpack."""
    with tempfile.TemporaryDirectory() as folder:
        plain = pathlib.Path(folder) / "plain.dcm"
        subprocess.run(["gdcmconv", "--raw", path, plain], check=True, capture_output=True)
        return pydicom.dcmread(plain).pixel_array


def stored(path, image):
    baseline = image.file_meta.get("TransferSyntaxUID") == JPEG_BASELINE
    if baseline and image.PhotometricInterpretation.startswith("YBR"):
        frame = next(pydicom.encaps.generate_pixel_data_frame(image.PixelData))
        return numpy.asarray(Image.open(io.BytesIO(frame)).convert("RGB"))
    try:
        return image.pixel_array
    except Exception:
        if not image.file_meta.TransferSyntaxUID.is_compressed:
            raise
        return unpacked(path)


def red_green_blue(pixels):
    """From full-range brightness and chroma."""
    y, blue, red = (pixels[..., i].astype(float) for i in range(3))
    blue, red = blue - 128, red - 128
    colours = [y + 1.402 * red, y - 0.344136 * blue - 0.714136 * red, y + 1.772 * blue]
    return numpy.clip(numpy.floor(numpy.stack(colours, -1) + 0.5), 0, 255).astype("uint8")


def shown(path, image):
    pixels = stored(path, image)
    if image.SamplesPerPixel == 1:
        return pixels
    if not image.file_meta.TransferSyntaxUID.is_compressed and image.PhotometricInterpretation.startswith("YBR"):
        return red_green_blue(pixels)
    most = 2**image.BitsStored - 1
    return (pixels.astype("uint64") * 255 + most // 2) // most


def row(path):
    image = pydicom.dcmread(path)
    pixels = shown(path, image)
    frames = int(image.get("NumberOfFrames") or 1)
    values = pixels.reshape(-1).astype("int64")
    weighted = values * (1 + numpy.arange(len(values)) % 997)
    colour = image.SamplesPerPixel == 3
    kind = "rgb" if colour else ("i" if pixels.dtype.kind == "i" else "u") + str(8 * pixels.dtype.itemsize)
    slope = 1 if colour else image.get("DoseGridScaling") or image.get("RescaleSlope") or 1
    intercept = 0 if colour else image.get("RescaleIntercept") or 0
    return (f'    {{"{path.relative_to(FOLDER)}", {image.Columns}, {image.Rows}, {frames}, PixelType::{kind}, '
            f"{values.sum()}, {weighted.sum()}, {float(slope)!r}, {float(intercept)!r}}},")


def is_image(path):
    try:
        image = pydicom.dcmread(path)
        return "Rows" in image and row(path) is not None
    except Exception:
        return False


print("""#pragma once

#include "workbench/document/pixels.h"

namespace document_test {

/// Made by real_dicom_files.py, which tells what the numbers are.
struct RealFile {
    const char* name;
    int columns, rows, frames;
    document::PixelType type;
    double sum, weighted_sum, slope, intercept;
};

// clang-format off
using document::PixelType;
inline constexpr RealFile real_files[] = {""")
for file in sorted(FOLDER.rglob("*")):
    if file.is_file() and is_image(file):
        print(row(file))
print("""};
// clang-format on

}""")
