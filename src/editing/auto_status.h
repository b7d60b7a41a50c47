// Pictures that tell the status of a value or of a file.
#pragma once

#include "editing/bound_control.h"
#include "records/validation_status.h"
#include "toolkit/picture.h"

#include <cstdint>

enum class Gem_type : std::uint8_t { Saphire, Amethist, Ruby, Topaz, Emerald };

// What a status looks like: the colour of a panel, and the gem.
struct Status_look {
    Colour panel_colour;
    Gem_type gem;
};
// Null for a number that is no status.
const Status_look* status_look(TESK::Validation_status status);

class TAutoValidStatusLED : public TImage, public Help_link {
public:
    explicit TAutoValidStatusLED(std::string name);

    // Null shows that nothing is known.
    void bind_to(const TESK::Validation_status* status, const char* help_URL);
    void Update() override;

private:
    const TESK::Validation_status* status_ = nullptr;
};

class TAutoGem : public TImage {
public:
    explicit TAutoGem(std::string name);

    // Takes the gem of the status; a number that is no status changes nothing.
    void set_status(TESK::Validation_status status);
    Gem_type gem_type() const { return gem_type_; }
    void set_gem_type(Gem_type type);
    std::uint8_t setting() const { return setting_; }
    void set_setting(std::uint8_t setting) { setting_ = setting; }
    // The number of the picture: that of the type, and the setting.
    int bitmap_number() const;

private:
    Gem_type gem_type_ = Gem_type::Saphire;
    std::uint8_t setting_ = 0;
};
