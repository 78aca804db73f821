// SPDX-License-Identifier: MIT
// Prints how far every decoder and encoder is from the conversion in real numbers: tables in
// Markdown. It goes over every triple of samples, and over every pixel in groups of equal pixels.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/variants.h"

namespace {

// Scalar code, SIMD, and the SIMD variant that has roundings of its own. That the others write what
// the second writes is shown by other tests.
const char* const arithmetics[] = {"mx", "m7", "l9"};
constexpr int scalar = 0, simd = 1, widest = 2, arithmeticCount = 3;

// What a component is, in real numbers: first samples, or red, green and blue.
struct Triple {
  double of[3] = {};
  double& operator[](int i) { return of[i]; }
  double operator[](int i) const { return of[i]; }
};

double clamped(double v) {
  return std::clamp(v, 0.0, 255.0);
}

// ---- The conversions in real numbers -----------------------------------------------------------

constexpr double lumaRed = 0.299, lumaBlue = 0.114, lumaGreen = 1 - lumaRed - lumaBlue;

// ITU-R BT.601 in studio range, and the analogue differences in full range: 8-bit sample = offset +
// scale * value, of luma and of the differences from luma.
struct Matrix {
  double lumaOffset, lumaScale, blueScale, redScale;
};
constexpr Matrix ycbcr = {16, 219 / 255.0, 112 / 255.0 / (1 - lumaBlue),
                          112 / 255.0 / (1 - lumaRed)};
constexpr Matrix yuv = {0, 1, 0.492, 0.877};

Triple decoded(const Matrix& m, int y, int cb, int cr) {
  const double luma = (y - m.lumaOffset) / m.lumaScale;
  const double red = luma + (cr - 128) / m.redScale, blue = luma + (cb - 128) / m.blueScale;
  return {red, (luma - lumaRed * red - lumaBlue * blue) / lumaGreen, blue};
}

Triple encoded(const Matrix& m, const Triple& rgb) {
  const double luma = lumaRed * rgb[0] + lumaGreen * rgb[1] + lumaBlue * rgb[2];
  return {clamped(m.lumaOffset + m.lumaScale * luma), clamped(128 + m.blueScale * (rgb[2] - luma)),
          clamped(128 + m.redScale * (rgb[0] - luma))};
}

// ---- Statistics --------------------------------------------------------------------------------

// Of the errors of three components.
struct Errors {
  double count = 0;
  Triple most = {}, sum = {}, squares = {};
  void add(const Errors& o) {
    count += o.count;
    for (int i = 0; i < 3; ++i) {
      most[i] = std::max(most[i], o.most[i]);
      sum[i] += o.sum[i];
      squares[i] += o.squares[i];
    }
  }
};

std::string threeNumbers(const Triple& t, const char* format) {
  std::string text;
  for (const double v : t.of) {
    char number[32];
    // Without the sign of what rounds to zero.
    std::snprintf(number, sizeof number, format, std::abs(v) < 0.005 ? 0.0 : v);
    text.append(text.empty() ? "" : "/").append(number);
  }
  return text;
}

std::string mostOf(const Errors& e) {
  return threeNumbers(e.most, "%.2f");
}
std::string meanOf(const Errors& e) {
  Triple mean;
  for (int i = 0; i < 3; ++i) mean[i] = e.sum[i] / e.count;
  return threeNumbers(mean, "%+.2f");
}
std::string rmsOf(const Errors& e) {
  Triple rms;
  for (int i = 0; i < 3; ++i) rms[i] = std::sqrt(e.squares[i] / e.count);
  return threeNumbers(rms, "%.2f");
}

// The cells of a row but for its first.
std::string cells(const std::vector<std::string>& texts) {
  std::string row;
  for (const std::string& text : texts) row.append(text).append(" |").append(" ");
  row.pop_back();
  return row;
}

// ---- Rows of tables, those of equal numbers merged ---------------------------------------------

class Table {
 public:
  // `what` has this row in this arithmetic.
  void add(const std::string& row, const std::string& what, int arithmetic) {
    if (rows_.count(row) == 0) order_.push_back(row);
    auto& sources = rows_[row];
    for (auto& [source, arithmeticsOf] : sources)
      if (source == what) {
        arithmeticsOf.insert(arithmetic);
        return;
      }
    sources.push_back({what, {arithmetic}});
  }
  void print() const {
    for (const std::string& row : order_) {
      const auto& sources = rows_.at(row);
      std::string first;
      std::size_t named = 0;
      for (const auto& [arithmeticsOf, text] : texts()) {
        std::string names;
        for (const auto& source : sources)
          if (source.second == arithmeticsOf) {
            names.append(names.empty() ? "" : ", ").append(source.first);
            ++named;
          }
        if (!names.empty()) first.append(first.empty() ? "" : "; ").append(text).append(names);
      }
      if (named != sources.size()) throw std::logic_error("no word for who agrees with whom");
      std::printf("| %s | %s\n", first.c_str(), row.c_str());
    }
  }

 private:
  // Which arithmetics can agree. Scalar code and one SIMD variant never do against another.
  static std::vector<std::pair<std::set<int>, const char*>> texts() {
    return {{{scalar, simd, widest}, ""},
            {{scalar}, "scalar: "},
            {{simd, widest}, "SIMD: "},
            {{simd}, "SIMD but `l9`: "},
            {{widest}, "`l9`: "}};
  }
  std::vector<std::string> order_;
  std::map<std::string, std::vector<std::pair<std::string, std::set<int>>>> rows_;
};

// ---- Decoders ----------------------------------------------------------------------------------

// Of one chroma pair every luma stands at each of four columns, in four rows: the column of luma y
// in copy k is k * 260 + k + y. All rows have the same samples.
constexpr int copyColumns = 260, columns = 4 * copyColumns, rows = 4, lumas = 256;

struct Fields {
  int shift[3], bits[3];  // of red, green and blue
};

struct Gamut {
  Errors all, inside;  // inside: where no ideal component has to be clamped
};
struct DecoderErrors {
  Gamut each, pattern;  // of each pixel; of the mean of the sixteen places
  void add(const DecoderErrors& o) {
    each.all.add(o.each.all), each.inside.add(o.each.inside);
    pattern.all.add(o.pattern.all), pattern.inside.add(o.pattern.inside);
  }
};

struct Ideal {
  double value[3][lumas], inside[lumas];
  Ideal(const Matrix& m, int cb, int cr) {
    for (int y = 0; y < lumas; ++y) {
      const Triple t = decoded(m, y, cb, cr);
      inside[y] = 1;
      for (int i = 0; i < 3; ++i) {
        value[i][y] = clamped(t[i]);
        if (value[i][y] != t[i]) inside[y] = 0;
      }
    }
  }
};

using Image = std::vector<std::uint16_t>;

// A decoder in one arithmetic.
struct Decoder {
  const Conversion* conversion;
  int arithmetic;
  Image image;  // at one chroma pair
  DecoderErrors atPair, errors;
  std::int64_t unlikeScalar = 0;
  int levelsApart = 0;  // the most that a field is from that of scalar code

  bool has(std::string_view part) const { return conversion->has(part); }
  bool isBgr() const { return has("ToBGR"); }
  bool dithers() const { return has("Dither"); }
  Fields fields() const {
    const int low = has("444") ? 4 : 5, green = has("565") ? 6 : low, top = low + green;
    return {{isBgr() ? top : 0, low, isBgr() ? 0 : top}, {low, green, low}};
  }
  void compare(const Image& byScalar) {
    const Fields f = fields();
    for (std::size_t x = 0; x < lumas; ++x) {
      unlikeScalar += image[x] != byScalar[x];
      for (int i = 0; i < 3; ++i) {
        const int mask = (1 << f.bits[i]) - 1;
        levelsApart = std::max(levelsApart, std::abs((image[x] >> f.shift[i] & mask) -
                                                     (byScalar[x] >> f.shift[i] & mask)));
      }
    }
  }
  std::string source() const {
    const bool isWhole = !has("422") && !has("420") && !has("411");
    std::string text = isWhole ? "4:4:4" : has("422") ? "4:2:2" : has("420") ? "4:2:0" : "4:1:1";
    if (isWhole || has("422")) text += has("P3C3R") ? " planes" : " interleaved";
    if (has("422") && has("C2C3R") && !dithers() && !has("444"))
      text += isBgr() ? " to BGR" : " to RGB";
    return text;
  }
};

// The samples of one chroma pair, in every layout.
class Samples {
 public:
  Samples() {
    for (int x = 0; x < columns; ++x) {
      const int y = std::clamp(x % copyColumns - x / copyColumns, 0, lumas - 1);
      luma_[x] = static_cast<std::uint8_t>(y);
      threes_[3 * x] = twos_[2 * x] = luma_[x];
    }
  }
  void set(int cb, int cr) {
    std::memset(cb_, cb, sizeof cb_);
    std::memset(cr_, cr, sizeof cr_);
    for (int x = 0; x < columns; ++x) {
      threes_[3 * x + 1] = static_cast<std::uint8_t>(cb);
      threes_[3 * x + 2] = static_cast<std::uint8_t>(cr);
      twos_[2 * x + 1] = static_cast<std::uint8_t>(x % 2 ? cr : cb);
    }
  }
  void decode(Decoder& d) const {
    CallArguments a = {};
    a.src[0] = d.has("C2C3R") ? twos_ : d.has("P3C3R") ? luma_ : threes_;
    a.src[1] = cb_, a.src[2] = cr_;
    // Every row is the same row. A plain pixel does not depend on its place, so that one copy does,
    // and two rows for 4:2:0.
    a.size = d.dithers() ? pxmSize{columns, rows} : pxmSize{lumas, 2};
    d.image.resize(d.dithers() ? columns * rows : lumas * 2);
    a.dst[0] = reinterpret_cast<std::uint8_t*>(d.image.data());
    a.dstStep[0] = 2 * a.size.width;
    const SelectedVariant selected(variantNamed(arithmetics[d.arithmetic]));
    if (d.conversion->call(a) != pxmStatusOk)
      throw std::logic_error(std::string(d.conversion->name) + " fails");
  }

 private:
  std::uint8_t luma_[columns], cb_[columns], cr_[columns], threes_[3 * columns], twos_[2 * columns];
};

// Levels of a component over the places of each luma.
struct Levels {
  std::uint16_t sum[lumas] = {}, squares[lumas] = {};
  std::int16_t least[lumas], most[lumas];
  void add(const std::uint16_t* words, int shift, int mask) {
    for (int y = 0; y < lumas; ++y) {
      const auto level = static_cast<std::uint16_t>((words[y] >> shift) & mask);
      sum[y] = static_cast<std::uint16_t>(sum[y] + level);
      squares[y] = static_cast<std::uint16_t>(squares[y] + level * level);
      least[y] = std::min(least[y], static_cast<std::int16_t>(level));
      most[y] = std::max(most[y], static_cast<std::int16_t>(level));
    }
  }
};

DecoderErrors errorsOf(const Decoder& d, const Ideal& ideal) {
  DecoderErrors result;
  const Fields fields = d.fields();
  const int places = d.dithers() ? 16 : 1;
  for (int y = 0; y < lumas; ++y) result.each.inside.count += ideal.inside[y] * places;
  result.each.all.count = lumas * places;
  result.pattern.all.count = lumas;
  result.pattern.inside.count = result.each.inside.count / places;
  for (int i = 0; i < 3; ++i) {
    const int mask = (1 << fields.bits[i]) - 1;
    Levels levels;
    std::fill_n(levels.least, lumas, static_cast<std::int16_t>(mask));
    std::fill_n(levels.most, lumas, std::int16_t{0});
    if (places == 1) levels.add(d.image.data(), fields.shift[i], mask);
    for (int k = 0; places == 16 && k < 16; ++k)
      levels.add(d.image.data() + k / 4 * columns + k % 4 * (copyColumns + 1), fields.shift[i],
                 mask);

    const double unit = 255.0 / mask;
    double most = 0, patternMost = 0;
    Triple all = {}, inside = {};  // sum of errors, of their squares, of the squares of means
    for (int y = 0; y < lumas; ++y) {
      const double v = ideal.value[i][y], g = ideal.inside[y];
      const double sum = unit * levels.sum[y], squares = unit * unit * levels.squares[y];
      const double error = sum - places * v, mean = error / places;
      const double square = squares - 2 * v * sum + places * v * v;
      most = std::max({most, unit * levels.most[y] - v, v - unit * levels.least[y]});
      patternMost = std::max({patternMost, mean, -mean});
      all[0] += error, inside[0] += g * error;
      all[1] += square, inside[1] += g * square;
      all[2] += mean * mean, inside[2] += g * mean * mean;
    }
    result.each.all.most[i] = most, result.pattern.all.most[i] = patternMost;
    result.each.all.sum[i] = all[0], result.each.inside.sum[i] = inside[0];
    result.each.all.squares[i] = all[1], result.each.inside.squares[i] = inside[1];
    result.pattern.all.squares[i] = all[2], result.pattern.inside.squares[i] = inside[2];
  }
  return result;
}

// RGB order is measured where it may differ from BGR in more than the places of fields.
std::vector<Decoder> decodersOf(bool isYuv, const char* format, bool dithers) {
  std::vector<Decoder> decoders;
  for (const Conversion& c : conversions()) {
    if (c.kind != Kind::Decode || c.has("YUV") != isYuv || !c.has(format)) continue;
    if (c.has("Dither") != dithers || (c.has("ToRGB") && (dithers || !c.has("C2C3R")))) continue;
    for (int a = 0; a < arithmeticCount; ++a) decoders.push_back({&c, a, {}, {}, {}, 0, 0});
  }
  return decoders;
}

void measure(std::vector<Decoder>& decoders, const Matrix& matrix) {
  Samples samples;
  for (int pair = 0; pair < 65536; ++pair) {
    const int cb = pair & 255, cr = pair >> 8;
    const Ideal ideal(matrix, cb, cr);
    samples.set(cb, cr);
    for (std::size_t n = 0; n < decoders.size(); ++n) {
      Decoder& d = decoders[n];
      samples.decode(d);
      const auto end = decoders.begin() + static_cast<std::ptrdiff_t>(n);
      const auto same = std::find_if(decoders.begin(), end, [&](const Decoder& earlier) {
        return earlier.isBgr() == d.isBgr() && earlier.image == d.image;
      });
      d.atPair = same == end ? errorsOf(d, ideal) : same->atPair;
      d.errors.add(d.atPair);
      const Image& byScalar = decoders[n - static_cast<std::size_t>(d.arithmetic)].image;
      if (d.image != byScalar) d.compare(byScalar);
    }
  }
}

std::string rowOf(const DecoderErrors& e, const char* format, bool isInside, bool dithers) {
  const Errors& each = isInside ? e.each.inside : e.each.all;
  const Errors& pattern = isInside ? e.pattern.inside : e.pattern.all;
  if (!dithers && isInside) return cells({format, meanOf(each), rmsOf(each)});
  if (!dithers) return cells({format, mostOf(each), meanOf(each), rmsOf(each)});
  if (isInside) return cells({format, meanOf(each), rmsOf(each), rmsOf(pattern)});
  return cells({format, mostOf(each), meanOf(each), rmsOf(each), mostOf(pattern), rmsOf(pattern)});
}

void printDecoders(bool isYuv, bool dithers, Table& unlike) {
  Table tables[2];
  double inside = 0;
  for (const char* const format : {"444", "555", "565"}) {
    std::vector<Decoder> decoders = decodersOf(isYuv, format, dithers);
    measure(decoders, isYuv ? yuv : ycbcr);
    for (const Decoder& d : decoders) {
      for (const bool isInside : {false, true})
        tables[isInside].add(rowOf(d.errors, format, isInside, dithers), d.source(), d.arithmetic);
      inside = d.errors.pattern.inside.count;
      if (d.arithmetic == scalar || d.unlikeScalar == 0) continue;
      if (dithers) throw std::logic_error("a dither differs between scalar code and SIMD");
      char share[64];
      std::snprintf(share, sizeof share, "%.3f %%",
                    100 * static_cast<double>(d.unlikeScalar) / (1 << 24));
      unlike.add(cells({format, share, std::to_string(d.levelsApart)}),
                 (isYuv ? "YUV " : "YCbCr ") + d.source(), d.arithmetic);
    }
  }
  const char* const kind = isYuv ? "YUV" : "YCbCr";
  std::printf("\n## %s to 16-bit pixels, %s\n", kind, dithers ? "dithered" : "plain");
  std::printf("\nAll 16777216 triples:\n\n| From | Format | Most | Mean | RMS |%s\n",
              dithers ? " Most of 4x4 | RMS of 4x4 |" : "");
  std::printf("|---|---|---|---|---|%s\n", dithers ? "---|---|" : "");
  tables[false].print();
  std::printf("\nThe %.0f triples inside the RGB cube:\n\n| From | Format | Mean | RMS |%s\n",
              inside, dithers ? " RMS of 4x4 |" : "");
  std::printf("|---|---|---|---|%s\n", dithers ? "---|" : "");
  tables[true].print();
}

// ---- Encoders ----------------------------------------------------------------------------------

// A pixel's components: its fields shifted up to 8 bits, or stretched to 255.
Triple componentsOf(const Conversion& c, int word, bool isStretched) {
  const bool isBgr = c.has("BGR");
  const int green = c.has("565") ? 6 : 5, bits[3] = {5, green, 5};
  const int shift[3] = {isBgr ? 5 + green : 0, 5, isBgr ? 0 : 5 + green};
  Triple t;
  for (int i = 0; i < 3; ++i) {
    const int most = (1 << bits[i]) - 1, level = word >> shift[i] & most;
    t[i] = isStretched ? level * 255.0 / most : level << (8 - bits[i]);
  }
  return t;
}

struct EncoderErrors {
  Errors byIdeal[2];  // components shifted up, components stretched
  Triple least = {255, 255, 255}, greatest = {};

  std::string range() const {
    std::string text;
    for (int i = 0; i < 3; ++i) {
      char numbers[32];
      std::snprintf(numbers, sizeof numbers, "%.0f..%.0f", least[i], greatest[i]);
      text.append(i == 0 ? "" : "/").append(numbers);
    }
    return text;
  }
};

// Groups of four by two equal pixels, a row of them at a time.
EncoderErrors measureEncoder(const Conversion& c, int arithmetic) {
  EncoderErrors result;
  constexpr int groups = 256, width = 4 * groups;
  const SelectedVariant selected(variantNamed(arithmetics[arithmetic]));
  std::uint16_t pixels[2 * width];
  std::uint8_t planes[3][4 * width];
  for (int high = 0; high < 256; ++high) {
    for (int x = 0; x < 2 * width; ++x)
      pixels[x] = static_cast<std::uint16_t>(high * 256 + x % width / 4);
    CallArguments a = {};
    a.src[0] = reinterpret_cast<const std::uint8_t*>(pixels);
    a.srcStep[0] = 2 * width;
    for (int i = 0; i < 3; ++i) a.dst[i] = planes[i], a.dstStep[i] = 2 * width;
    a.size = {width, 2};
    if (c.call(a) != pxmStatusOk) throw std::logic_error(std::string(c.name) + " fails");
    const int chromaShift = c.has("411") ? 2 : 1;
    for (int x = 0; x < groups; ++x) {
      const int column = 4 * x, chroma = column >> chromaShift;
      const std::uint8_t* const luma = planes[0] + (c.has("C2R") ? 2 * column : column);
      const std::uint8_t* const first = c.has("C2R") ? luma + 1 : planes[1] + chroma;
      const std::uint8_t* const second = c.has("C2R") ? luma + 3 : planes[2] + chroma;
      Triple samples = {*luma * 1.0, *first * 1.0, *second * 1.0};
      if (c.has("YCrCb")) std::swap(samples[1], samples[2]);
      for (const bool isStretched : {false, true}) {
        const Triple ideal =
            encoded(c.has("YUV") ? yuv : ycbcr, componentsOf(c, high * 256 + x, isStretched));
        Errors one;
        one.count = 1;
        for (int i = 0; i < 3; ++i) {
          one.sum[i] = samples[i] - ideal[i];
          one.most[i] = std::abs(one.sum[i]);
          one.squares[i] = one.sum[i] * one.sum[i];
        }
        result.byIdeal[isStretched].add(one);
      }
      for (int i = 0; i < 3; ++i) {
        result.least[i] = std::min(result.least[i], samples[i]);
        result.greatest[i] = std::max(result.greatest[i], samples[i]);
      }
    }
  }
  return result;
}

void printEncoders() {
  Table tables[2];
  for (const Conversion& c : conversions()) {
    if (c.kind != Kind::Encode) continue;
    const std::string name(c.name), from = name.substr(0, 6);
    const bool isYuv = c.has("YUV");
    std::string to = isYuv ? "YUV" : c.has("YCrCb") ? "YCrCb" : "YCbCr";
    to += c.has("411") ? " 4:1:1" : c.has("422") ? " 4:2:2" : " 4:2:0";
    if (c.has("422") && !isYuv) to += c.has("C2R") ? " interleaved" : " planes";
    for (int a = 0; a < arithmeticCount; ++a) {
      const EncoderErrors errors = measureEncoder(c, a);
      for (const bool isStretched : {false, true}) {
        const Errors& e = errors.byIdeal[isStretched];
        std::vector<std::string> numbers = {from, mostOf(e), meanOf(e), rmsOf(e)};
        if (!isStretched) numbers.push_back(errors.range());
        tables[isStretched].add(cells(numbers), to, a);
      }
    }
  }
  std::printf("\n## 16-bit pixels to YCbCr and YUV\n");
  for (const bool isStretched : {false, true}) {
    std::printf(isStretched
                    ? "\nFields stretched to 255:\n\n"
                    : "\nFields shifted up to 8 bits, which is what the functions take:\n\n");
    std::printf("| To | From | Most | Mean | RMS |%s\n|---|---|---|---|---|%s\n",
                isStretched ? "" : " Range |", isStretched ? "" : "---|");
    tables[isStretched].print();
  }
}

void print() {
  Table unlike;
  for (const bool isYuv : {false, true})
    for (const bool dithers : {false, true}) printDecoders(isYuv, dithers, unlike);
  printEncoders();
  std::printf(
      "\n## Triples whose pixel differs between scalar code and SIMD\n\n"
      "| From | Format | Of all triples | By levels, at most |\n|---|---|---|---|\n");
  unlike.print();
}

}  // namespace

int main() {
  try {
    for (const char* const tag : arithmetics)
      if (!machineRuns(variantNamed(tag))) {
        std::fprintf(stderr, "accuracy_table: this machine cannot run variant %s\n", tag);
        return 77;
      }
    print();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "accuracy_table: %s\n", error.what());
    return 1;
  }
}
