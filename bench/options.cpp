// SPDX-License-Identifier: MIT
#include "bench/options.h"

#include <algorithm>
#include <regex>

#include "catalogue/variants.h"

namespace {

constexpr const char* usageOfOptions =
    "  --only REGEX        only conversions whose name has a match\n"
    "  --size WxH,..       only these sizes; at least 4x2\n"
    "  --quick             fewer rounds, and only an in-cache strip and a thumbnail\n"
    "  --no-peers          without other libraries\n"
    "  --against LIBRARY   beside another build of the library, not stripped: how many times as\n"
    "                      fast as that one this build is\n"
    "  --threads           instead: one frame in bands of rows over 1 to N threads\n"
    "  --output DIR        where the results go\n"
    "  --help              this text\n";

const std::vector<Size> strips = {{640, 16}, {96, 64}};
const std::vector<Size> allSizes = {{640, 16}, {96, 64},     {641, 17},
                                    {95, 63},  {1920, 1080}, {3840, 2160}};
const std::vector<Size> frames = {{1920, 1080}, {3840, 2160}};

// One for each kind of work.
constexpr const char* splitConversions =
    "^(YCbCr420ToBGR565(Dither)?_|YCbCr422ToBGR565_8u16u_C2|YCbCrToBGR565_8u16u_P3|"
    "BGR565ToYCbCr420|BGR565ToBGR_|ColorTwist32f_8s_C3R)";

std::vector<std::string> split(const std::string& list) {
  std::vector<std::string> parts(1);
  for (const char c : list)
    if (c == ',')
      parts.emplace_back();
    else
      parts.back() += c;
  return parts;
}

std::vector<int> parseVariants(const std::string& list) {
  const std::vector<int> runnable = runnableVariants();
  std::vector<int> variants;
  for (const std::string& tag : split(list)) {
    const auto* found = std::find(variantTags, variantTags + variantCount, tag);
    if (found == variantTags + variantCount) throw BadOption("there is no variant '" + tag + "'");
    const int variant = static_cast<int>(found - variantTags);
    if (std::find(runnable.begin(), runnable.end(), variant) == runnable.end())
      throw BadOption("this machine cannot run variant " + tag);
    variants.push_back(variant);
  }
  std::sort(variants.begin(), variants.end());
  variants.erase(std::unique(variants.begin(), variants.end()), variants.end());
  return variants;
}

std::vector<Size> parseSizes(const std::string& list) {
  static const std::regex form("([0-9]{1,5})x([0-9]{1,5})");
  std::vector<Size> sizes;
  for (const std::string& word : split(list)) {
    std::smatch match;
    if (!std::regex_match(word, match, form))
      throw BadOption("'" + word + "' is no size such as 640x16");
    const Size size = {std::stoi(match[1]), std::stoi(match[2])};
    if (size.width < 4 || size.height < 2 || size.width > 16384 || size.height > 16384)
      throw BadOption("size " + word + " is not between 4x2 and 16384x16384");
    sizes.push_back(size);
  }
  return sizes;
}

std::vector<const Conversion*> conversionsLike(const std::string& expression) {
  std::vector<const Conversion*> some;
  try {
    const std::regex form(expression);
    for (const Conversion& c : conversions())
      if (std::regex_search(c.name.begin(), c.name.end(), form)) some.push_back(&c);
  } catch (const std::regex_error&) {
    throw BadOption("'" + expression + "' is no regular expression");
  }
  if (some.empty()) throw BadOption("no conversion has a match of '" + expression + "'");
  return some;
}

}  // namespace

std::string usage() {
  std::string tags;
  for (const char* const tag : variantTags) tags += std::string(" ") + tag;
  return "Usage: scripts/bench [OPTION...]\n"
         "Times every conversion in every variant that this machine runs, beside the fastest call "
         "of\n"
         "other libraries for the same work and a copy of the same bytes.\n"
         "  --variants TAG,..   only these variants:" +
         tags + "\n" + usageOfOptions;
}

Options parseOptions(int count, const char* const* words) {
  Options options;
  std::string only;
  for (int i = 1; i < count; ++i) {
    const std::string word = words[i];
    const auto value = [&]() -> std::string {
      if (i + 1 == count || !*words[i + 1]) throw BadOption(word + " needs a value");
      return words[++i];
    };
    if (word == "--variants")
      options.variants = parseVariants(value());
    else if (word == "--only")
      only = value();
    else if (word == "--size")
      options.sizes = parseSizes(value());
    else if (word == "--output")
      options.output = value();
    else if (word == "--against")
      options.against = value();
    else if (word == "--no-peers")
      options.peers = false;
    else if (word == "--quick")
      options.quick = true;
    else if (word == "--threads")
      options.threads = true;
    else if (word == "--help" || word == "-h")
      options.help = true;
    else
      throw BadOption("there is no option '" + word + "'");
  }
  if (options.threads && !options.against.empty())
    throw BadOption("--threads and --against do not go together");
  if (options.variants.empty()) options.variants = runnableVariants();
  if (only.empty() && options.threads) only = splitConversions;
  options.conversions = conversionsLike(only);
  if (options.sizes.empty())
    options.sizes = options.threads ? frames : options.quick ? strips : allSizes;
  if (options.output.empty()) options.output = "build/bench/results";
  return options;
}
