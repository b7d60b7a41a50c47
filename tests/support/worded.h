// A language of the screens that lives as long as the object: it words some texts.
#pragma once

#include "toolkit/screen_language.h"

#include <functional>

class Worded : public Screen_language {
public:
    explicit Worded(std::function<std::string(const std::string&)> words) : words_(std::move(words)) {
        current_screen_language = this;
    }
    Worded(const Worded&) = delete;
    Worded& operator=(const Worded&) = delete;
    ~Worded() override { current_screen_language = nullptr; }
    std::string wording(const std::string& text) const override { return words_(text); }
    void prepare(TForm&) override {}

private:
    std::function<std::string(const std::string&)> words_;
};
