// SPDX-License-Identifier: MIT
#include "png_input.h"

#include <png.h>

#include <cerrno>
#include <csetjmp>
#include <cstdio>
#include <cstring>

#include "failure.h"

namespace examples {

namespace {

constexpr size_t kSignatureBytes = 8;
constexpr size_t kRoomBytes = 2 * 3;
constexpr int kLongestRow = 1 << 24;

// The file, and what the callbacks of libpng leave about it.
class Source {
 public:
  explicit Source(const std::string& path)
      : path_(path == "-" ? "standard input" : path),
        file_(path == "-" ? stdin : std::fopen(path.c_str(), "rb")) {
    if (file_ == nullptr) {
      throw Failure(systemFailure("open", path_, errno));
    }
  }
  ~Source() {
    if (file_ != stdin) {
      std::fclose(file_);
    }
  }
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;

  size_t read(unsigned char* bytes, size_t count) {
    errno = 0;
    const size_t done = std::fread(bytes, 1, count, file_);
    if (std::ferror(file_) != 0) {
      errorNumber_ = errno;
    }
    return done;
  }

  void setMessage(const char* text) { std::snprintf(message_, sizeof message_, "%s", text); }

  /// Throws a Failure with what went wrong.
  [[noreturn]] void fail() const {
    throw Failure(std::ferror(file_) != 0 ? systemFailure("read", path_, errorNumber_)
                                          : quoted(path_) + ": " + message_);
  }

 private:
  std::string path_;
  std::FILE* file_;
  int errorNumber_ = 0;
  char message_[160] = "";
};

// True if there are bytes and they begin as a PNG picture does, whole or cut.
void checkSignature(Source& source) {
  unsigned char bytes[kSignatureBytes];
  const size_t count = source.read(bytes, sizeof bytes);
  if (count == sizeof bytes && png_sig_cmp(bytes, 0, count) == 0) {
    return;
  }
  const bool cut = count > 0 && count < sizeof bytes && png_sig_cmp(bytes, 0, count) == 0;
  source.setMessage(count == 0 ? "the file is empty"
                    : cut      ? "the picture ends inside its signature"
                               : "this is not a PNG picture");
  source.fail();
}

void onError(png_structp png, png_const_charp message) {
  auto* source = static_cast<Source*>(png_get_error_ptr(png));
  char text[128];
  std::snprintf(text, sizeof text, "the picture is damaged (%s)", message);
  source->setMessage(text);
  png_longjmp(png, 1);
}

void onWarning(png_structp, png_const_charp) {}

void onRead(png_structp png, png_bytep bytes, size_t count) {
  if (static_cast<Source*>(png_get_io_ptr(png))->read(bytes, count) != count) {
    png_error(png, "the file ends too early");
  }
}

// Owns libpng's structures.
struct PngReader {
  png_structp png;
  png_infop info = nullptr;

  explicit PngReader(Source* source)
      : png(png_create_read_struct(PNG_LIBPNG_VER_STRING, source, onError, onWarning)) {
    if (png != nullptr) {
      info = png_create_info_struct(png);
      png_set_read_fn(png, source, onRead);
    }
  }
  ~PngReader() { png_destroy_read_struct(&png, &info, nullptr); }
  PngReader(const PngReader&) = delete;
  PngReader& operator=(const PngReader&) = delete;
};

// Whatever the picture is made of becomes three bytes a pixel. Returns how often its rows are read.
int setTransforms(png_structp png, png_infop info, ByteOrder order) {
  png_set_expand(png);
  png_set_scale_16(png);
  png_set_gray_to_rgb(png);
  if ((png_get_color_type(png, info) & PNG_COLOR_MASK_ALPHA) != 0 ||
      png_get_valid(png, info, PNG_INFO_tRNS) != 0) {
    const png_color_16 black = {};
    png_set_background(png, &black, PNG_BACKGROUND_GAMMA_SCREEN, 0, 1.0);
  }
  if (order == ByteOrder::kBgr) {
    png_set_bgr(png);
  }
  const int passes = png_set_interlace_handling(png);
  png_read_update_info(png, info);
  return passes;
}

// Row by row: an array of all rows' addresses may be larger than the picture.
void readPasses(png_structp png, int passes, const BytePicture& picture) {
  for (int pass = 0; pass < passes; ++pass) {
    for (int y = 0; y < picture.size.height; ++y) {
      png_read_row(png, picture.bytes.get() + area(picture.step(), y), nullptr);
    }
  }
}

// libpng leaves these functions with longjmp after an error, so no object in them has a destructor.
bool readInfo(PngReader& reader) {
  if (setjmp(png_jmpbuf(reader.png)) != 0) {
    return false;
  }
  // With a gamma from these chunks libpng would blend transparent pixels in linear light.
  static const png_byte kGammaChunks[] = "gAMA\0sRGB\0iCCP";
  png_set_keep_unknown_chunks(reader.png, PNG_HANDLE_CHUNK_NEVER, kGammaChunks, 3);
  png_set_user_limits(reader.png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
  png_set_sig_bytes(reader.png, kSignatureBytes);
  png_read_info(reader.png, reader.info);
  return true;
}

bool readRows(PngReader& reader, ByteOrder order, const BytePicture& picture) {
  if (setjmp(png_jmpbuf(reader.png)) != 0) {
    return false;
  }
  readPasses(reader.png, setTransforms(reader.png, reader.info, order), picture);
  png_read_end(reader.png, nullptr);
  return true;
}

// libpng touches memory of its own for a few rows, whatever the file holds.
BytePicture emptyPicture(const PngReader& reader) {
  BytePicture picture;
  picture.size = {static_cast<int>(png_get_image_width(reader.png, reader.info)),
                  static_cast<int>(png_get_image_height(reader.png, reader.info))};
  requireMemory(picture.size, 3);
  if (picture.size.width > kLongestRow) {
    throw Failure("pictures with rows of more than " + std::to_string(kLongestRow) +
                  " pixels are not read");
  }
  const size_t count = 3 * area(picture.size.width, picture.size.height);
  picture.bytes = std::make_unique_for_overwrite<unsigned char[]>(count + kRoomBytes);
  std::memset(picture.bytes.get() + count, 0, kRoomBytes);
  return picture;
}

}  // namespace

BytePicture readPng(const std::string& path, ByteOrder order) {
  Source source(path);
  checkSignature(source);
  PngReader reader(&source);
  if (reader.png == nullptr || reader.info == nullptr) {
    throw Failure("cannot read " + quoted(path) + ": libpng does not start");
  }
  if (!readInfo(reader)) {
    source.fail();
  }
  BytePicture picture = emptyPicture(reader);
  if (!readRows(reader, order, picture)) {
    source.fail();
  }
  return picture;
}

}  // namespace examples
