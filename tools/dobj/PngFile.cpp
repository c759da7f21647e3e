#include "PngFile.h"

#include "ToolSupport.h"

#include <png.h>

#include <cstdio>
#include <cerrno>
#include <cstring>
#include <memory>

namespace Dobj {

namespace {

struct FileCloser
{
    void operator()(std::FILE * file) const { std::fclose(file); }
};

struct ErrorText
{
    char text[256] = {};
};

[[noreturn]] void PngError(png_structp png, png_const_charp message)
{
    auto * error = static_cast<ErrorText *>(png_get_error_ptr(png));
    std::strncpy(error->text, message, sizeof error->text - 1);
    png_longjmp(png, 1);
}

void PngWarning(png_structp, png_const_charp) {}

//! libpng leaves this frame by longjmp on failure, so nothing in it has a destructor.
bool WriteRows(png_structp png, png_infop info, std::FILE * file, png_bytepp rows, unsigned int width,
               unsigned int height)
{
    if (setjmp(png_jmpbuf(png)))
        return false;
    png_init_io(png, file);
    png_set_IHDR(png, info, width, height, 8, PNG_COLOR_TYPE_GRAY, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_set_compression_level(png, 3);
    png_set_rows(png, info, rows);
    png_write_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr);
    return true;
}

} // namespace

void WriteGreyPng(std::string const & path, unsigned int width, unsigned int height,
                  std::vector<std::uint8_t> const & pixels)
{
    std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "wb"));
    if (!file)
        throw Failure("cannot write " + path + ": " + std::strerror(errno));
    ErrorText error;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &error, PngError, PngWarning);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!info) {
        png_destroy_write_struct(&png, nullptr);
        throw Failure("cannot write " + path + ": out of memory");
    }
    std::vector<png_bytep> rows(height);
    for (unsigned int y = 0; y < height; ++y)
        rows[y] = const_cast<png_bytep>(pixels.data() + std::size_t(y) * width);
    bool const written = WriteRows(png, info, file.get(), rows.data(), width, height);
    png_destroy_write_struct(&png, &info);
    if (!written || std::fflush(file.get()) != 0)
        throw Failure("cannot write " + path + ": " + (written ? std::strerror(errno) : error.text));
}

} // namespace Dobj
