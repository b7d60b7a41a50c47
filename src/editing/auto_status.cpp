#include "editing/auto_status.h"

#include <iterator>

namespace {

constexpr Status_look looks[TESK::validation_status_count] = {
    {0xffaa1b, Gem_type::Saphire},  // unknown
    {0xee80ee, Gem_type::Amethist}, // no number
    {0x6677ff, Gem_type::Ruby},     // errors
    {0x6677ff, Gem_type::Ruby},     //
    {0x6677ff, Gem_type::Ruby},     //
    {0x66aaee, Gem_type::Ruby},     // possible errors
    {0x66aaee, Gem_type::Ruby},     //
    {0x66aaee, Gem_type::Ruby},     //
    {0x55ffff, Gem_type::Topaz},    // warnings
    {0x55ffff, Gem_type::Topaz},    //
    {0x55ffff, Gem_type::Topaz},    //
    {0x99ee77, Gem_type::Emerald},  // unchecked
    {0x33cc55, Gem_type::Emerald},  // good
    {0x808080, Gem_type::Saphire},  // disabled
};

constexpr int gem_bitmaps[] = {4061, 4001, 4041, 4081, 4021};
constexpr int other_gem_bitmap = 4076;

} // namespace

const Status_look* status_look(TESK::Validation_status status) {
    const auto index = static_cast<std::size_t>(status);
    return index < std::size(looks) ? &looks[index] : nullptr;
}

TAutoValidStatusLED::TAutoValidStatusLED(std::string name) : TImage(std::move(name), status_light(0)) {
    set_hint(
        "Status indicator:Red=Invalid value, Orange=Possibly invalid value, Yellow=Out of range, "
        "Green=Value appear OK, Blue=Status unknown, Purple=Required value has not been specified. Arrows "
        "indicate if the value is too low or too high.");
}

void TAutoValidStatusLED::bind_to(const TESK::Validation_status* status, const char* help_URL) {
    status_ = status;
    Help_link::set(help_URL);
    Update();
}

void TAutoValidStatusLED::Update() {
    set_picture(status_light(status_ == nullptr ? 0 : static_cast<int>(*status_)));
}

TAutoGem::TAutoGem(std::string name) : TImage(std::move(name), gem_picture(0)) {}

void TAutoGem::set_status(TESK::Validation_status status) {
    if (const Status_look* look = status_look(status))
        set_gem_type(look->gem);
}

void TAutoGem::set_gem_type(Gem_type type) {
    gem_type_ = type;
    set_picture(gem_picture(static_cast<int>(type)));
}

int TAutoGem::bitmap_number() const {
    const auto index = static_cast<std::size_t>(gem_type_);
    return (index < std::size(gem_bitmaps) ? gem_bitmaps[index] : other_gem_bitmap) + setting_;
}
