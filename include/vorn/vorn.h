// Everything that a host includes.
#ifndef VORN_VORN_H
#define VORN_VORN_H

#include "tamsu2/variant.h"
#include "vorn/export.h"
#include "vorn/option.h"
#include "vorn/parser.h"
#include "vorn/result.h"
#include "vorn/value.h"

#endif
