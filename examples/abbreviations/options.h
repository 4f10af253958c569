// What the tool takes. Its main and the check of its releases declare the same.
#ifndef EXAMPLE_ABBREVIATIONS_OPTIONS_H
#define EXAMPLE_ABBREVIATIONS_OPTIONS_H

#include "vorn/host.h"

inline void declareOptions(vorn::host::Parser& parser) {
    parser.version("2.0");
    parser.add<std::string>("output-dir,o", "Where they go.");
    parser.add<std::string>("format", "What to write.").allow("text", "json");
    parser.addSwitch("verbose", "Say more.");
    vorn::host::Parser& remove = parser.command("remove,rm", "Removes some.");
    remove.addFlag("force", "Do not ask.");
}

#endif
