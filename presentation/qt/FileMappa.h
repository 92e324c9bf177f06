// Where the picture of the time zones' map is: the set-up draws it beside the places database.
#pragma once

#include <filesystem>

namespace vesmo {

// MappaFusi.png beside `fileDB`; when it is not there, beside the database delivered with an
// installed program (an installed program works on the user's copy of the database, and the
// map stays with the delivered one); else the name beside `fileDB` all the same.
std::filesystem::path FileMappaFusi(const std::filesystem::path& fileDB);

} // namespace vesmo
