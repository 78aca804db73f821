// SPDX-License-Identifier: MIT
#include "png_file.h"

#include <png.h>

#include <cerrno>
#include <csetjmp>
#include <cstdio>
#include <vector>

#include "failure.h"
#include "output_file.h"

namespace examples {

namespace {

// What the callbacks of libpng reach through its pointers.
struct Encoder {
  OutputFile* file;
  int errorNumber = 0;  // of the write that failed
  char message[128] = "";
};

void onError(png_structp png, png_const_charp message) {
  auto* encoder = static_cast<Encoder*>(png_get_error_ptr(png));
  std::snprintf(encoder->message, sizeof encoder->message, "%s", message);
  png_longjmp(png, 1);
}

void onWarning(png_structp, png_const_charp) {}

void onWrite(png_structp png, png_bytep bytes, size_t count) {
  auto* encoder = static_cast<Encoder*>(png_get_io_ptr(png));
  if (!encoder->file->tryWrite(bytes, count)) {
    encoder->errorNumber = errno;
    png_error(png, "write error");
  }
}

void onFlush(png_structp) {}

// Owns libpng's structures.
struct PngWriter {
  png_structp png;
  png_infop info = nullptr;

  explicit PngWriter(Encoder* encoder)
      : png(png_create_write_struct(PNG_LIBPNG_VER_STRING, encoder, onError, onWarning)) {
    if (png != nullptr) {
      info = png_create_info_struct(png);
      png_set_write_fn(png, encoder, onWrite, onFlush);
    }
  }
  ~PngWriter() { png_destroy_write_struct(&png, &info); }
  PngWriter(const PngWriter&) = delete;
  PngWriter& operator=(const PngWriter&) = delete;
};

// libpng leaves this function with longjmp after an error, so no object in it has a destructor.
bool encode(PngWriter& writer, int width, int height, const RowSource& rowSource,
            unsigned char* row) {
  if (setjmp(png_jmpbuf(writer.png)) != 0) {
    return false;
  }
  png_set_user_limits(writer.png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
  png_set_IHDR(writer.png, writer.info, static_cast<png_uint_32>(width),
               static_cast<png_uint_32>(height), 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_write_info(writer.png, writer.info);
  for (int y = 0; y < height; ++y) {
    rowSource(y, row);
    png_write_row(writer.png, row);
  }
  png_write_end(writer.png, writer.info);
  return true;
}

}  // namespace

void writePng(const std::string& path, int width, int height, const RowSource& rowSource) {
  OutputFile file(path);
  Encoder encoder{&file};
  PngWriter writer(&encoder);
  if (writer.png == nullptr || writer.info == nullptr) {
    throw Failure("cannot write " + quoted(path) + ": libpng does not start");
  }
  std::vector<unsigned char> row(static_cast<size_t>(width) * 3);
  if (!encode(writer, width, height, rowSource, row.data())) {
    throw Failure(encoder.errorNumber != 0
                      ? systemFailure("write", path, encoder.errorNumber)
                      : "cannot write " + quoted(path) + ": " + encoder.message);
  }
  file.commit();
}

}  // namespace examples
