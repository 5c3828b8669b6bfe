// SPDX-License-Identifier: MIT
#include "art/atelier/Files.h"

#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <jpeglib.h>
#include <png.h>

namespace atelier
{

constexpr int JpegQuality = 92;
constexpr int LargestSide = 16384;

// libjpeg ends the process on an error unless it is caught by a jump.
struct JpegFailure {
    jpeg_error_mgr manager;
    std::jmp_buf back;
};

static void LeaveJpeg(j_common_ptr info)
{
    std::longjmp(reinterpret_cast<JpegFailure*>(info->err)->back, 1);
}
static void SayNothing(j_common_ptr) {}

static bool DecodeJpeg(const std::string& bytes, Raster& raster)
{
    jpeg_decompress_struct info;
    JpegFailure failure;
    info.err = jpeg_std_error(&failure.manager);
    failure.manager.error_exit = LeaveJpeg;
    failure.manager.output_message = SayNothing;
    if (setjmp(failure.back) != 0) {
        jpeg_destroy_decompress(&info);
        return false;
    }
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    jpeg_read_header(&info, TRUE);
    info.out_color_space = JCS_RGB;
    jpeg_start_decompress(&info);
    raster.width = int(info.output_width);
    raster.height = int(info.output_height);
    raster.channels = 3;
    const size_t stride = size_t(raster.width) * 3;
    raster.bytes.assign(stride * size_t(raster.height), 0);
    while (info.output_scanline < info.output_height) {
        JSAMPROW row = raster.bytes.data() + stride * info.output_scanline;
        jpeg_read_scanlines(&info, &row, 1);
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
    return true;
}

static bool DecodePng(const std::string& bytes, Raster& raster)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()) == 0)
        return false;
    const bool alpha = (image.format & PNG_FORMAT_FLAG_ALPHA) != 0;
    image.format = alpha ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
    raster.width = int(image.width);
    raster.height = int(image.height);
    raster.channels = alpha ? 4 : 3;
    if (raster.width > LargestSide || raster.height > LargestSide) {
        png_image_free(&image);
        return false;
    }
    raster.bytes.assign(PNG_IMAGE_SIZE(image), 0);
    return png_image_finish_read(&image, nullptr, raster.bytes.data(), 0, nullptr) != 0;
}

std::string EncodedJpeg(const Raster& raster)
{
    jpeg_compress_struct info;
    JpegFailure failure;
    unsigned char* memory = nullptr;
    unsigned long size = 0;
    info.err = jpeg_std_error(&failure.manager);
    failure.manager.error_exit = LeaveJpeg;
    if (setjmp(failure.back) != 0) {
        jpeg_destroy_compress(&info);
        return {};
    }
    jpeg_create_compress(&info);
    jpeg_mem_dest(&info, &memory, &size);
    info.image_width = static_cast<JDIMENSION>(raster.width);
    info.image_height = static_cast<JDIMENSION>(raster.height);
    info.input_components = 3;
    info.in_color_space = JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, JpegQuality, TRUE);
    info.dct_method = JDCT_ISLOW; // the same integers everywhere
    info.optimize_coding = TRUE;
    for (int i = 0; i < info.num_components; i++) {
        info.comp_info[i].h_samp_factor = 1;
        info.comp_info[i].v_samp_factor = 1;
    }
    jpeg_start_compress(&info, TRUE);
    const size_t stride = size_t(raster.width) * 3;
    while (info.next_scanline < info.image_height) {
        JSAMPROW row = const_cast<JSAMPROW>(raster.bytes.data() + stride * info.next_scanline);
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    std::string bytes(reinterpret_cast<char*>(memory), size);
    std::free(memory);
    return bytes;
}

std::string EncodedPng(const Raster& raster)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(raster.width);
    image.height = static_cast<png_uint_32>(raster.height);
    image.format = raster.channels == 4 ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::string bytes(size, '\0');
    if (png_image_write_to_memory(&image, bytes.data(), &size, 0, raster.bytes.data(), 0, nullptr) == 0)
        return {};
    bytes.resize(size);
    return bytes;
}

std::string Encoded(const Raster& raster, const std::string& name)
{
    return name.ends_with(".jpg") ? EncodedJpeg(raster) : EncodedPng(raster);
}

bool Decode(const std::string& bytes, Raster& raster)
{
    return bytes.starts_with("\x89PNG") ? DecodePng(bytes, raster) : DecodeJpeg(bytes, raster);
}

bool ReadFile(const std::string& path, std::string& bytes)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return false;
    bytes.assign(std::istreambuf_iterator<char>(file), {});
    return true;
}

bool WriteFile(const std::string& path, const std::string& bytes)
{
    std::error_code error;
    const std::filesystem::path target(path);
    if (target.has_parent_path())
        std::filesystem::create_directories(target.parent_path(), error);
    const std::string fresh = path + ".new";
    {
        std::ofstream file(fresh, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!file)
            return false;
    }
    std::filesystem::rename(fresh, target, error);
    return !error;
}

} // namespace atelier
