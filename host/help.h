// Help for people: what a parser has declared, as data and as a page for a terminal.
#ifndef VORN_HOST_HELP_PAGE_H
#define VORN_HOST_HELP_PAGE_H

#include <string>

#include "parse.h"
#include "table.h"
#include "vorn/host/help.h"

namespace vorn_3_1::host::detail {

/// What a record says, of a table that is sealed.
OptionInfo infoOf(const Table& table, unsigned index, const Environment& environment);

/// The page of a table that is sealed.
HelpPage helpPage(const Table& table, bool showsAll, const Environment& environment);

/// The page as a terminal shows it. No line is wider than `columns`.
std::string terminalHelp(const HelpPage& page, unsigned columns, bool hasColours);

/// Seals the table and what is around it.
void sealWithOuter(Table& table);

}  // namespace vorn_3_1::host::detail

#endif
