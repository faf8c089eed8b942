#pragma once

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
inline constexpr RealFile real_files[] = {
    {"693_J2KI.dcm", 512, 512, 1, PixelType::i16, -2181784, -1022968112, 1.0, -1024.0},
    {"CT_small.dcm", 128, 128, 1, PixelType::i16, 14826310, 7311342842, 1.0, -1024.0},
    {"ExplVR_BigEnd.dcm", 80, 60, 1, PixelType::rgb, 2470716, 1212256381, 1.0, 0.0},
    {"GDCMJ2K_TextGBR.dcm", 400, 400, 1, PixelType::rgb, 59729223, 29789881917, 1.0, 0.0},
    {"J2K_pixelrep_mismatch.dcm", 512, 512, 1, PixelType::i16, -172605258, -85793014068, 1.0, 0.0},
    {"JPEG-lossy.dcm", 256, 1024, 1, PixelType::u16, 3767007, 1882225073, 1.0, 0.0},
    {"JPEG2000.dcm", 256, 1024, 1, PixelType::i16, 3527976, 1760361462, 1.0, 0.0},
    {"JPGExtended.dcm", 256, 1024, 1, PixelType::u16, 3767007, 1882225073, 1.0, 0.0},
    {"MR_small.dcm", 64, 64, 1, PixelType::i16, 2125338, 1038958995, 1.0, 0.0},
    {"MR_small_RLE.dcm", 64, 64, 1, PixelType::i16, 2125338, 1038958995, 1.0, 0.0},
    {"MR_small_bigendian.dcm", 64, 64, 1, PixelType::i16, 2125338, 1038958995, 1.0, 0.0},
    {"MR_small_expb.dcm", 64, 64, 1, PixelType::i16, 2125338, 1038958995, 1.0, 0.0},
    {"MR_small_implicit.dcm", 64, 64, 1, PixelType::i16, 2125338, 1038958995, 1.0, 0.0},
    {"MR_small_jp2klossless.dcm", 64, 64, 1, PixelType::i16, 2125338, 1038958995, 1.0, 0.0},
    {"MR_small_jpeg_ls_lossless.dcm", 64, 64, 1, PixelType::i16, 2125338, 1038958995, 1.0, 0.0},
    {"MR_small_padded.dcm", 64, 64, 1, PixelType::i16, 2125338, 1038958995, 1.0, 0.0},
    {"SC_jpeg_no_color_transform.dcm", 256, 256, 1, PixelType::rgb, 47966767, 23915976335, 1.0, 0.0},
    {"SC_jpeg_no_color_transform_2.dcm", 256, 256, 1, PixelType::rgb, 48294002, 24078782634, 1.0, 0.0},
    {"SC_rgb_dcmtk_+eb+cr.dcm", 100, 100, 1, PixelType::rgb, 3832200, 1906827947, 1.0, 0.0},
    {"SC_rgb_dcmtk_+eb+cy+n1.dcm", 100, 100, 1, PixelType::rgb, 3826350, 1904904091, 1.0, 0.0},
    {"SC_rgb_dcmtk_+eb+cy+n2.dcm", 100, 100, 1, PixelType::rgb, 3832000, 1907187135, 1.0, 0.0},
    {"SC_rgb_dcmtk_+eb+cy+np.dcm", 100, 100, 1, PixelType::rgb, 3826350, 1904904091, 1.0, 0.0},
    {"SC_rgb_dcmtk_+eb+cy+s2.dcm", 100, 100, 1, PixelType::rgb, 3832000, 1907187135, 1.0, 0.0},
    {"SC_rgb_dcmtk_+eb+cy+s4.dcm", 100, 100, 1, PixelType::rgb, 3832000, 1907187135, 1.0, 0.0},
    {"SC_rgb_gdcm_KY.dcm", 100, 100, 1, PixelType::rgb, 3831000, 1906503540, 1.0, 0.0},
    {"SC_rgb_jpeg.dcm", 256, 256, 1, PixelType::rgb, 47966767, 23915976335, 1.0, 0.0},
    {"SC_rgb_jpeg_app14_dcmd.dcm", 256, 256, 1, PixelType::rgb, 48294002, 24078782634, 1.0, 0.0},
    {"SC_rgb_jpeg_dcmd.dcm", 256, 256, 1, PixelType::rgb, 47966767, 23915976335, 1.0, 0.0},
    {"SC_rgb_jpeg_dcmtk.dcm", 100, 100, 1, PixelType::rgb, 3832000, 1907187135, 1.0, 0.0},
    {"SC_rgb_jpeg_gdcm.dcm", 100, 100, 1, PixelType::rgb, 3831000, 1906503540, 1.0, 0.0},
    {"SC_rgb_jpeg_lossy_gdcm.dcm", 100, 100, 1, PixelType::rgb, 3836000, 1907465364, 1.0, 0.0},
    {"SC_rgb_rle.dcm", 100, 100, 1, PixelType::rgb, 3831000, 1906503540, 1.0, 0.0},
    {"SC_rgb_rle_16bit.dcm", 100, 100, 1, PixelType::rgb, 3831000, 1906503540, 1.0, 0.0},
    {"SC_rgb_rle_16bit_2frame.dcm", 100, 100, 2, PixelType::rgb, 7650000, 3807973305, 1.0, 0.0},
    {"SC_rgb_rle_2frame.dcm", 100, 100, 2, PixelType::rgb, 7650000, 3807973305, 1.0, 0.0},
    {"SC_rgb_rle_32bit.dcm", 100, 100, 1, PixelType::rgb, 3831000, 1906503540, 1.0, 0.0},
    {"SC_rgb_rle_32bit_2frame.dcm", 100, 100, 2, PixelType::rgb, 7650000, 3807973305, 1.0, 0.0},
    {"SC_rgb_small_odd.dcm", 3, 3, 1, PixelType::rgb, 3477, 51780, 1.0, 0.0},
    {"SC_rgb_small_odd_jpeg.dcm", 3, 3, 1, PixelType::rgb, 3465, 51603, 1.0, 0.0},
    {"SC_ybr_full_422_uncompressed.dcm", 100, 100, 1, PixelType::rgb, 3832000, 1907187135, 1.0, 0.0},
    {"dicomdirtests/77654033/CR1/6154", 16, 16, 1, PixelType::u16, 646091, 83952264, 0.684, 200.0},
    {"dicomdirtests/77654033/CR2/6247", 16, 16, 1, PixelType::u16, 399953, 51090139, 0.684, 200.0},
    {"dicomdirtests/77654033/CR3/6278", 16, 16, 1, PixelType::u16, 613147, 76257667, 0.684, 200.0},
    {"dicomdirtests/77654033/CT2/17106", 16, 16, 1, PixelType::i16, 103749, 14408231, 1.0, -1024.0},
    {"dicomdirtests/77654033/CT2/17136", 16, 16, 1, PixelType::i16, 402336, 51752911, 1.0, -1024.0},
    {"dicomdirtests/77654033/CT2/17166", 16, 16, 1, PixelType::i16, 623134, 79712357, 1.0, -1024.0},
    {"dicomdirtests/77654033/CT2/17196", 16, 16, 1, PixelType::i16, 490592, 63705872, 1.0, -1024.0},
    {"dicomdirtests/98892001/CT2N/6293", 16, 16, 1, PixelType::i16, 330365, 42523557, 1.0, -1024.0},
    {"dicomdirtests/98892001/CT2N/6924", 16, 16, 1, PixelType::i16, 293030, 37602013, 1.0, -1024.0},
    {"dicomdirtests/98892001/CT5N/2062", 16, 16, 1, PixelType::i16, 171447, 21321054, 1.0, -1024.0},
    {"dicomdirtests/98892001/CT5N/2392", 16, 16, 1, PixelType::i16, 213780, 26842287, 1.0, -1024.0},
    {"dicomdirtests/98892001/CT5N/2693", 16, 16, 1, PixelType::i16, 251180, 32006487, 1.0, -1024.0},
    {"dicomdirtests/98892001/CT5N/3023", 16, 16, 1, PixelType::i16, 252443, 32962337, 1.0, -1024.0},
    {"dicomdirtests/98892001/CT5N/3353", 16, 16, 1, PixelType::i16, 244550, 31888734, 1.0, -1024.0},
    {"dicomdirtests/98892003/MR1/15820", 16, 16, 1, PixelType::i16, 140730, 17861957, 1.0, 0.0},
    {"dicomdirtests/98892003/MR1/4919", 16, 16, 1, PixelType::i16, 183241, 23564675, 1.0, 0.0},
    {"dicomdirtests/98892003/MR1/5641", 16, 16, 1, PixelType::i16, 156143, 20371840, 1.0, 0.0},
    {"dicomdirtests/98892003/MR2/15970", 16, 16, 1, PixelType::i16, 59831, 7389359, 1.0, 0.0},
    {"dicomdirtests/98892003/MR2/4950", 16, 16, 1, PixelType::i16, 171698, 22279112, 1.0, 0.0},
    {"dicomdirtests/98892003/MR2/4981", 16, 16, 1, PixelType::i16, 177641, 23142284, 1.0, 0.0},
    {"dicomdirtests/98892003/MR2/5011", 16, 16, 1, PixelType::i16, 165548, 21549957, 1.0, 0.0},
    {"dicomdirtests/98892003/MR2/6273", 16, 16, 1, PixelType::i16, 161791, 21035311, 1.0, 0.0},
    {"dicomdirtests/98892003/MR2/6605", 16, 16, 1, PixelType::i16, 149273, 19473096, 1.0, 0.0},
    {"dicomdirtests/98892003/MR2/6935", 16, 16, 1, PixelType::i16, 156380, 20330289, 1.0, 0.0},
    {"dicomdirtests/98892003/MR700/4467", 16, 16, 1, PixelType::i16, 15714, 2001211, 1.0, 0.0},
    {"dicomdirtests/98892003/MR700/4528", 16, 16, 1, PixelType::i16, 20777, 2811932, 1.0, 0.0},
    {"dicomdirtests/98892003/MR700/4558", 16, 16, 1, PixelType::i16, 38927, 4543091, 1.0, 0.0},
    {"dicomdirtests/98892003/MR700/4588", 16, 16, 1, PixelType::i16, 16180, 1981353, 1.0, 0.0},
    {"dicomdirtests/98892003/MR700/4618", 16, 16, 1, PixelType::i16, 15206, 1918257, 1.0, 0.0},
    {"dicomdirtests/98892003/MR700/4648", 16, 16, 1, PixelType::i16, 7223, 464608, 1.0, 0.0},
    {"dicomdirtests/98892003/MR700/4678", 16, 16, 1, PixelType::i16, 7642, 538050, 1.0, 0.0},
    {"image_dfl.dcm", 512, 512, 1, PixelType::u8, 33322688, 16610647654, 1.0, 0.0},
    {"liver_1frame.dcm", 512, 512, 1, PixelType::u8, 36233, 18145397, 1.0, 0.0},
    {"liver_expb_1frame.dcm", 512, 512, 1, PixelType::u8, 36233, 18145397, 1.0, 0.0},
    {"rtdose.dcm", 10, 10, 15, PixelType::u32, 1519910000, 626900898000, 1e-06, 0.0},
    {"rtdose_1frame.dcm", 10, 10, 1, PixelType::u32, 101378000, 4706067000, 1e-06, 0.0},
    {"rtdose_expb.dcm", 10, 10, 15, PixelType::u32, 1519910000, 626900898000, 1e-06, 0.0},
    {"rtdose_expb_1frame.dcm", 10, 10, 1, PixelType::u32, 101378000, 4706067000, 1e-06, 0.0},
    {"rtdose_rle.dcm", 10, 10, 15, PixelType::u32, 1519910000, 626900898000, 1e-06, 0.0},
    {"rtdose_rle_1frame.dcm", 10, 10, 1, PixelType::u32, 101378000, 4706067000, 1e-06, 0.0},
};
// clang-format on

}
