// An origin and an error as texts. The sentence of an error is there already, from mistakes.cpp or value_reader.cpp;
// this file puts the place in front of it, where a person has to look elsewhere than at the command line:
//
//     thumbs.conf, line 2    thumbs.conf:2: unknown option '--qualtiy'
//     command line           unknown option '--qualtiy'
#include "vorn/host/error.h"

#include "shown_text.h"

namespace vorn_3_1::host {

std::string Origin::text() const {
    if (layer == Layer::none) return "nowhere";
    if (layer == Layer::defaulted) return "the default";
    if (place.empty()) return "argument " + std::to_string(line);
    const std::string shownPlace = detail::shown(place);
    return line > 0 ? shownPlace + ":" + std::to_string(line) : shownPlace;
}

std::string Error::text() const {
    const bool isElsewhere = origin.layer != Origin::Layer::none && !origin.place.empty();
    return isElsewhere ? origin.text() + ": " + sentence : sentence;
}

}  // namespace vorn_3_1::host
