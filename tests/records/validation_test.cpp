#include "records/validation.h"

#include "record_support.h"

#include <cfloat>
#include <cmath>

using namespace TESK;

namespace {

constexpr Valid_range usual_range{1, 10, 0.5, 20};

struct Depth {
    explicit Depth(float depth, const Valid_range& range = usual_range, const char* second = "(soil)")
        : value(depth), valid(value, 0x2000, "depth", 2, 1.5, range, "m", "Observation depth", second) {}
    float value;
    Valid_float32 valid;
};

TEST(Validation, the_last_range_that_a_value_leaves_decides) {
    const std::tuple<float, Valid_range, Validation_status> cases[] = {
        {5, usual_range, Validation_status::good},
        {1, usual_range, Validation_status::good},
        {10, usual_range, Validation_status::good},
        {0.75F, usual_range, Validation_status::warning_low},
        {0.25F, usual_range, Validation_status::error_low},
        {15, usual_range, Validation_status::warning_high},
        {25, usual_range, Validation_status::error_high},
        {-1, {0, 10, 0, 10}, Validation_status::good},
        {-1, {0.001, 10, 0, 10}, Validation_status::warning_low},
        {-1, {0.001, 10, 0.001, 10}, Validation_status::error_low},
        {-1e30F, {FLT_MIN, FLT_MAX, FLT_MIN, FLT_MAX}, Validation_status::good},
        {3e38F, {FLT_MIN, FLT_MAX, FLT_MIN, FLT_MAX}, Validation_status::good},
        {HUGE_VALF, {0, 3.40282347e+38, 0, 3.40282347e+38}, Validation_status::good},
        {4, {5, 10, 5, 3}, Validation_status::error_high}};
    std::string message;
    for (const auto& [value, range, status] : cases) {
        Depth depth(value, range);
        EXPECT_EQ(depth.valid.status, Validation_status::unchecked);
        EXPECT_EQ(depth.valid.validate(message, true), status) << value;
        EXPECT_EQ(depth.valid.status, status);
    }
}

TEST(Validation, both_forms_of_the_verdict_end_in_valid) {
    const std::string ranges = "<TD> m<TD BGCOLOR=YELLOW>1.00<TD BGCOLOR=YELLOW>10.00<TD BGCOLOR=RED>0.50"
                               "<TD  BGCOLOR=RED>20.00<TD>";
    // the value, its range and second caption; the verdict as text and in a page
    const std::tuple<float, Valid_range, const char*, std::string, std::string> cases[] = {
        {5, usual_range, "(soil)", "Observation depth (soil) = 5.00 m",
         "(soil)<TD BGCOLOR=\"lightgreen\">5.00" + ranges},
        {15, usual_range, nullptr,
         "Observation depth  = 15.00 m\n = 15.00 m is not a reasonable value, \nshould range from 1.00 - "
         "10.00\n",
         "<TD BGCOLOR=\"YELLOW\">15.00" + ranges + "should range from 1.00 - 10.00\n"},
        {0.25F,
         {1, 10, 0.5, FLT_MAX},
         "x",
         "Observation depth x = 0.25 m (x)\n = 0.25 m is not a reasonable value, \nmust be greater than "
         "0.50\n",
         ""},
        {25,
         {0, 10, 0, 20},
         "x",
         "Observation depth x = 25.00 m (x)\n = 25.00 m is not a reasonable value, \nmust be less than "
         "20.00\n",
         ""},
    };
    std::string message;
    for (const auto& [value, range, second_caption, text, html] : cases) {
        Depth depth(value, range, second_caption);
        depth.valid.validate(message, false);
        EXPECT_EQ(message, "Validating:" + text + ":Valid\n");
        depth.valid.validate(message, true);
        EXPECT_TRUE(html.empty() || message == "<TR><TD>Observation depth<BR>" + html + "Valid\n") << message;
    }
}

TEST(Validation, the_record_line_is_followed_by_the_unit) {
    std::string line;
    EXPECT_EQ(Depth(5).valid.write_line(line), "depth=5.00 Observation depth (soil)\ndepth_units=m\n");
    std::int16_t days = 7;
    EXPECT_EQ(Valid_int16(days, "days", 1, usual_range, nullptr, nullptr).write_line(line),
              "days=7\ndays_units=\n");
}

TEST(Validation, a_record_stores_the_value_with_its_captions_and_units_only_where_they_can_be_chosen) {
    Depth depth(5);
    Undeclared_record record;
    record.expect_structure(true);
    record.expect_valid_float32(depth.valid);
    EXPECT_EQ(text_of(record), "[primary]\r\ndepth=5.0000000000 Observation depth (soil)\r\n");
    record.delete_structure();
    const std::uint32_t choices[] = {0x2000, 0x2042, 0};
    depth.valid.units_selectable = choices;
    depth.valid.shown_units = Units_clad(0x2042);
    record.expect_structure(true);
    record.expect_valid_float32(depth.valid);
    EXPECT_EQ(text_of(record), "[primary]\r\ndepth=5.0000000000 Observation depth (soil)\r\n"
                               "depth_units=m\r\ndepth_shown=cm\r\n");
}

} // namespace
