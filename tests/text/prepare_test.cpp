#include "text/prepare.h"

#include <algorithm>
#include <cstring>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "support/bytes.h"

namespace {

constexpr int32_t tags_only = -9; // as a depth; others prepare names and scripts

// What a text becomes in a buffer of exactly the promised size: wide codes as <code>, scripts as
// [size rise], other commands as (kind value).
std::string prepared(const std::string &text, int32_t depth) {
  std::vector<char> buffer(text_prepare_room(text.size()));
  std::memcpy(buffer.data(), text.c_str(), text.size() + 1);
  depth == tags_only ? text_prepare_tags(buffer.data()) : text_prepare(buffer.data(), depth);
  std::ostringstream out;
  for (const auto *b = reinterpret_cast<uint8_t *>(buffer.data()); *b != 0;
       b += text_form_length(*b)) {
    if (*b == 2)
      out << "<" << b[1] * 256 + b[2] << ">";
    else if (*b != 5)
      out << *b;
    else if (b[1] == 2)
      out << "[" << number_at<uint16_t>(b + 2) << " " << number_at<int16_t>(b + 4) << "]";
    else
      out << "(" << int{b[1]} << " " << i32_at(b + 2) << ")";
  }
  return out.str();
}

TEST(Prepare, TurnsNotationIntoForms) {
  const char *letters = "alphabetagammadeltaepsilonzetaetathetaiotakappalambdamunuxiomicronpirho"
                        "sigmatauupsilonphichipsiomegavardeltavarzetavarthetavarphivaromega";
  std::ostringstream codes;
  for (int code = 256; code < 309; code += code == 279 ? 25 : 1)
    codes << '<' << code << '>';
  const struct {
    int32_t depth;
    const char *text;
    std::string expected;
  } cases[] = {
      {0, letters, codes.str()},
      {0, "Omega pI PI VARphi", "<303> <271> <295> <307>"},
      {-1, "lambd varmu x^eta", "lambd var<267> x^<262>"},
      {1, "Xi_mu^nu", "<293>[179 -115]<267>[256 0][179 38]<268>[256 0]"},
      {0, "\2pipi\5Amumumu", "<28777><271>(65 1970107757)<267>"},

      {1, "^aZz1_09c_+-", "[179 38]aZz[256 0]1[179 -115]09[256 0]c[179 -115]+[256 0]-"},
      {1, "e^{x^{y_{z}}}", "e[179 38]x^{y_{z}}[256 0]"},
      {3, "e^{x^{y_{z}}}", "e[179 38]x[138 71]y[112 17]z[138 71][179 38][256 0]"},
      {2, "^{a^}b^", "[179 38]a[138 71][179 38][256 0]b[179 38][256 0]"},
      {2, "^{a{^}b}^}", "[179 38]a{[138 71]}[179 38]b[256 0][179 38]}[256 0]"},
      {2, "}^{\2{{\5{{{{{_{\2}}\5}}}}}",
       "}[179 38]<31611>(123 2071690107)[138 -36]<32125>(125 2105376125)[179 38][256 0]"},
      {1, "^alphaBeta2^{}{", "[179 38]<256><281>[256 0]2[179 38][256 0]{"},
      {1, "^\5Abcde\2ab", "[179 38](65 1701077858)[256 0]<24930>"},

      {tags_only, "#COL=7x#", "(0 7)x#"},
      {tags_only, "#Tab=#Col=-1", "(1 0)Col=-1"},
      {tags_only, "#tab##tab=65536", "#tab#(1 65536)"},
      {tags_only, "#tab=99999999999999999999", "(1 2147483647)"},
      {tags_only, "\5A#tab#tab=5", "(65 1650553891)(1 5)"},
  };
  for (const auto &c : cases)
    EXPECT_EQ(prepared(c.text, c.depth), c.expected) << c.text;
}

TEST(Prepare, NestsAsDeepAsTheTextDoes) {
  std::string text;
  for (int level = 0; level < 100000; level++)
    text += "^{";
  const std::string out = prepared(text, INT32_MAX);
  EXPECT_EQ(std::count(out.begin(), out.end(), '['), 200000);
  EXPECT_NE(out.find("[17 32767][17 32767]"), std::string::npos);
}

} // namespace
