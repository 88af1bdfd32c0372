#include "tools/Expression.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace ssq {
namespace {

constexpr double kHalfTurn = 3.141592653589793;

struct Valued {
    const char* text;
    ExpressionValue value;
};

// Values worked out by hand from the language's rules.
const Valued kValued[] = {
    // Precedence and grouping
    {"2+3*4", 14.0},
    {"(2+3)*4", 20.0},
    {"-2^2", -4.0},
    {"2^-1", 0.5},
    {"2^3^2", 64.0},
    {"2^-3^2*512", 1.0},
    {"8/4/2", 1.0},
    {"2*7\\3", 4.0},
    {"7\\2*3", 1.0},
    {"10 mod 4*2", 2.0},
    {"17 mod 10\\4", 1.0},
    {"1+10 mod 4", 3.0},
    {"3-5-2", -4.0},
    {"1&2+3", "15"},
    {"1+2&3=33", false},
    {"1+2&3=\"33\"", true},
    {"2*-3", -6.0},
    {"--3", 3.0},
    {"+-3", -3.0},
    {"not 1=2", true},
    {"not 0 and 6", 6.0},
    {"1 or 2 and 4", 1.0},
    {"1 xor 3 or 2", 2.0},
    {"5 eqv 3 xor 1", -8.0},
    {"0 imp 5 eqv 5", -1.0},
    {"1+not 2=2", 1.0},
    // Numbers
    {"1.5E+2", 150.0},
    {".5+5.", 5.5},
    {"12E-1", 1.2},
    {"&HFF", 255.0},
    {"&hffff", -1.0},
    {"&HFFFF&", 65535.0},
    {"&O17", 15.0},
    {"5mod 3", 2.0},
    {"5eqv 5", -1.0},
    // Division of whole numbers: halves to even, the sign of the dividend
    {"7/2", 3.5},
    {"7.5\\2", 4.0},
    {"6.5\\2", 3.0},
    {"-7\\2", -3.0},
    {"-7 mod 3", -1.0},
    {"7 mod -3", 1.0},
    {"8.5 mod 3", 2.0},
    {"(-2147483648) mod -1", 0.0},
    // Kinds of values
    {"\"1\"+\"2\"", "12"},
    {"\"1\"+2", 3.0},
    {"\"1\"*\" 2 \"", 2.0},
    {"\"a\"\"b\"", "a\"b"},
    {"True+True", -2.0},
    {"-True", 1.0},
    {"True&1", "True1"},
    {"x", ExpressionValue{}},
    {"x+3", 3.0},
    {"x+\"3\"", "3"},
    {"Empty+y", 0.0},
    {"A1*2", 0.0},
    {"Empty=0", true},
    {"Empty=\"\"", true},
    {"2<\"1\"", true},
    {"\"10\"<\"9\"", true},
    {"3>=3", true},
    {"3=>4", false},
    {"3<>4", true},
    {"(2>1)*5", -5.0},
    {"(1=1) and (2=3)", false},
    {"7 and 12", 4.0},
    {"not 5", -6.0},
    {"2.5 or 0", 2.0},
    {"1/3&\"\"", "0.333333333333333"},
    {"0.1+0.2&\"\"", "0.3"},
    {"1E15&\"\"", "1E+15"},
    {"123456789012345&\"\"", "123456789012345"},
    {"-2^-20&\"\"", "-9.5367431640625E-07"},
    {"1E-10&\"\"", "0.0000000001"},
    {"1 ' one", 1.0},
    // Functions of numbers
    {"INT(-3.5)", -4.0},
    {"Fix(-3.5)", -3.0},
    {"abs(-3)+sgn(-2)", 2.0},
    {"sqr(16)+exp(0)+log(1)", 5.0},
    {"sin(0)+cos(0)+tan(0)", 1.0},
    {"atn(1)*4", kHalfTurn},
    {"round(2.5)", 2.0},
    {"round(3.5)", 4.0},
    {"round(0.125,2)", 0.12},
    {"cint(2.5)+clng(3.5)", 6.0},
    {"cdbl(\"1,234.5\")", 1234.5},
    {"cstr(5)+\"1\"", "51"},
    {"hex(255)&oct(8)", "FF10"},
    {"hex(-1)&hex(-65536)", "FFFFFFFF0000"},
    {"isnumeric(\"12a\")", false},
    {"isnumeric(\"-1.5\")", true},
    // Functions of texts, counted in characters
    {"len(\"红球\")", 2.0},
    {"left(\"红蓝球\",2)&right(\"红蓝球\",1)", "红蓝球"},
    {"right(\"ab\",5)&left(\"ab\",0)", "ab"},
    {"mid(\"abcd\",2)&mid(\"abcd\",3,1)", "bcdc"},
    {"mid(\"ab\",5)", ""},
    {"instr(\"红蓝球\",\"球\")", 3.0},
    {"instr(3,\"abab\",\"b\")", 4.0},
    {"instr(1,\"ABC\",\"b\",1)", 2.0},
    {"instr(9,\"abc\",\"\")", 0.0},
    {"replace(\"aXbX\",\"X\",\"-\")", "a-b-"},
    {"replace(\"aXbx\",\"x\",\"\",2,1,1)", "bx"},
    {"strreverse(\"a红b\")", "b红a"},
    {"\"[\"&trim(\" a \")&ltrim(\" b\")&rtrim(\"c \")&\"]\"", "[abc]"},
    {"asc(\"A\")+len(chr(66))", 66.0},
    {"chr(asc(\"红\"))", "红"},
    {"string(3,\"ab\")&string(2,321)", "aaaAA"},
    {"ucase(\"aB\")&lcase(\"aB\")", "ABab"},
    {"\"a\"&hex(10)", "aA"},
};

TEST(Expression, HasTheValuesOfTheLanguage) {
    for (const auto& [text, value] : kValued) {
        const ExpressionResult result = EvaluateExpression(text);
        EXPECT_FALSE(result.error) << text << ": " << result.error->reason;
        if (const auto* number = std::get_if<double>(&value)) {
            ASSERT_TRUE(std::holds_alternative<double>(result.value)) << text;
            EXPECT_DOUBLE_EQ(std::get<double>(result.value), *number) << text;
        } else {
            EXPECT_EQ(result.value, value) << text << " gives " << ToText(result.value);
        }
    }
}

TEST(Expression, TellsWhatIsWrongAndWhere) {
    const struct {
        std::string text;
        const char* reason;
        std::size_t place;
    } faults[] = {
        {"", "公式是空的", 1},
        {"3+", "公式不完整", 3},
        {"3 4", "这里缺少运算符", 3},
        {"(3", "缺少右括号", 3},
        {"3)", "多余的右括号", 2},
        {"3,4", "多余的逗号", 2},
        {"3+*4", "这里缺少数字或名称", 3},
        {"left(\"a\",)", "这里缺少数字或名称", 10},
        {"3×4", "不能识别的字符“×”", 2},
        {"\"红\"+\"a", "文字缺少右引号", 5},
        {"1e999", "数字超出范围", 1},
        {"&HFFFFFFFFF", "数字超出范围", 1},
        {"2+IIF(1,2,3)", "没有函数“iif”", 3},
        {"1+int(1,2)", "函数“int”的参数个数不对", 3},
        {"round", "函数“round”的参数个数不对", 1},
        {"5-Null", "公式不支持“null”", 3},
        {"3/(2-2)", "除数为零", 2},
        {"3 mod 0.5", "除数为零", 3},
        {"0^-1", "除数为零", 2},
        {"(-8)^0.5", "负数的指数必须是整数", 5},
        {"1e300*1e300", "数值溢出", 6},
        {"3000000000\\2", "数值溢出", 11},
        {"cint(40000)", "数值溢出", 1},
        {"1+exp(1000)", "数值溢出", 3},
        {"3*\"ab\"", "这里需要数字，文字“ab”不是数字", 2},
        {"log(0)", "参数超出范围", 1},
        {"string(100000,\"a\")", "文字太长", 1},
        {std::string(200, '(') + "1", "嵌套太深", kDeepestExpression + 1},
        {std::string(200, '-') + "1", "嵌套太深", kDeepestExpression + 1},
        {std::string(kLongestExpression + 1, '1'), "公式太长", 1},
    };
    for (const auto& [text, reason, place] : faults) {
        const ExpressionResult result = EvaluateExpression(text);
        ASSERT_TRUE(result.error) << text;
        EXPECT_EQ(result.error->reason, reason) << text;
        EXPECT_EQ(result.error->place, place) << text;
    }
}

}  // namespace
}  // namespace ssq
