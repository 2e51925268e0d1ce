#pragma once

#include <string>

namespace morvane {

/// The makers' addresses that some texts carry; a value of the product's own configuration.
inline constexpr const char* kWebAddress = "www.morvane.example";
inline constexpr const char* kServiceMail = "service@morvane.example";

/// Every longer text that the program shows, in order of definition. Misspellings and padding are
/// part of the texts. Placeholders, filled with `Fill`: `***` first item, `###` second item, `nnn`
/// board numbers, `&&&` a word of the analysis error, `^^^` a line number. An entry may be replaced
/// while the program runs (`Msg008`), so the catalogue belongs to the program and is no constant.
struct Messages {
  std::string Msg001;
  std::string Msg002;
  std::string Msg003;
  std::string Msg004;
  std::string Msg005;
  std::string Msg006;
  std::string Msg007;
  std::string Msg008;
  std::string Msg009;
  std::string Msg010;
  std::string Msg011;
  std::string Msg012;
  std::string Msg013;
  std::string Msg014;
  std::string Msg015;
  std::string Msg016;
  std::string Msg017;
  std::string Msg018;
  std::string Msg019;
  std::string Msg020;
  std::string Msg021;
  std::string Msg022;
  std::string Msg023;
  std::string Msg024;
  std::string Msg025;
  std::string Msg026;
  std::string Msg027;
  std::string Msg028;
  std::string Msg029;
  std::string Msg030;
  std::string Msg031;
  std::string Msg032;
  std::string Msg033;
  std::string Msg034;
  std::string Msg035;
  std::string Msg036;
  std::string Msg037;
  std::string Msg038;
  std::string Msg039;
  std::string Msg040;
  std::string Msg041;
  std::string Msg042;
  std::string Msg043;
  std::string Msg044;
  std::string Msg045;
  std::string Msg046;
  std::string Msg047;
  std::string Msg048;
  std::string Msg049;
  std::string Msg050;
  std::string Msg051;
  std::string Msg052;
  std::string Msg053;
  std::string Msg054;
  std::string Msg055;
  std::string Msg056;
  std::string Msg057;
  std::string Msg058;
  std::string Msg059;
  std::string Msg060;
  std::string Msg061;
  std::string Msg062;
  std::string Msg063;
  std::string Msg064;
  std::string Msg065;
  std::string Msg066;
  std::string Msg067;
  std::string Msg068;
  std::string Msg069;
  std::string Msg070;
  std::string Msg071;
  std::string Msg072;
  std::string Msg073;
  std::string Msg074;
  std::string Msg075;
  std::string Msg076;
  std::string Msg077;
  std::string Msg078;
  std::string Msg079;
  std::string Msg080;
  std::string Msg081;
  std::string Msg082;
  std::string Msg083;
  std::string Msg084;
  std::string Msg085;
  std::string Msg086;
  std::string Msg087;
  std::string Msg088;
  std::string Msg089;
  std::string Msg090;
  std::string Msg091;
  std::string Msg092;
  std::string Msg093;
  std::string Msg094;
  std::string Msg095;
  std::string Msg096;
  std::string Msg097;
  std::string Msg098;
  std::string Msg099;
  std::string Msg100;
  std::string Msg101;
  std::string Msg102;
  std::string Msg103;
  std::string Msg104;
  std::string Msg105;
  std::string Msg106;
  std::string Msg107;
  std::string Msg108;
  std::string Msg109;
  std::string Msg110;
  std::string Msg111;
  std::string Msg112;
  std::string Msg113;
  std::string Msg114;
  std::string Msg115;
  std::string Msg116;
  std::string Msg117;
  std::string Msg118;
  std::string Msg119;
  std::string Msg120;
  std::string Msg121;
  std::string Msg122;
  std::string Msg123;
  std::string Msg124;
  std::string Msg125;
};

/// The catalogue as it stands at start-up.
[[nodiscard]] Messages InitMessages();

}  // namespace morvane
