// The dialect that the panels speak, in the store's own words.
#pragma once

#include <functional>
#include <string>
#include <string_view>

struct sqlite3;

namespace ssq {

// Translates one statement by tokens, never inside quotes:
//   select top N ...     becomes  select ... limit N, at the end of that select; where it is sorted
//                                 the limit counts in the rows that tie with row N on the sort key
//                                 (not in a compound select, nor under `order by 1`)
//   a mod b              becomes  a % b
//   ... order by x       gains    , rowid where the select reads one table only, so that rows that
//                                 tie come in insertion order; `isTable` tells a table from a view
//   ?                    becomes  ?1, ?2 ... in their order
std::string TranslateStatement(std::string_view sql,
                               const std::function<bool(std::string_view)>& isTable);

// Whether there is nothing but blanks and comments.
bool IsEmptyStatement(std::string_view sql);

// Adds the functions mid, int and day to a connection.
void RegisterFunctions(sqlite3* database);

}  // namespace ssq
