// Everything that a host includes: the plain interface, for C++11 and later.
//
//     vorn_3_1::IParser* parser = nullptr;
//     vorn_3_1::IParseResult* result = nullptr;
//     if (vorn_3_1::createParser(&parser) != 0 || parser->createResult(&result) != 0) return 1;
//     parser->option("level,l", "How hard to try.", tamsu2::qel_int, "")->defaultValue(5);
//     const int code = parser->parseArgsVector(argc, argv, result);
//     if (code == 0) run(vorn_3_1::getLastValue(result, "level").value.asInt());
//     else std::fprintf(stderr, "%s\n", parser->getErrorDesc());
//     result->destroy();
//     parser->destroy();
#ifndef VORN_VORN_H
#define VORN_VORN_H

#include "tamsu2/variant.h"
#include "vorn/export.h"
#include "vorn/option.h"
#include "vorn/parser.h"
#include "vorn/result.h"
#include "vorn/value.h"

#endif
