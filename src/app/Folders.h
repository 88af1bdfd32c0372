// Where the program stands and where it keeps what belongs to its user.
#pragma once

#include <filesystem>
#include <string>

namespace ssq {

struct Folders {
    std::filesystem::path program;  // holds the program's file, the manual, the updater
    std::filesystem::path user;     // holds data/ssq.mdb, its lock and what the user saves
};

// A program with a database of its own beside it (data/ssq.mdb) that can be written keeps
// everything in its folder. One installed where the user can't write works in `home`, a folder of
// that user, which is made; so does one that has a database to hand out (delivered/ssq.mdb).
Folders ChooseFolders(const std::filesystem::path& program, const std::filesystem::path& home);

// Lays what is delivered into the user's folder where nothing stands yet: the whole of a file or
// nothing. False with the reason in Chinese; a program without anything to hand out lays nothing.
bool LayDelivered(const Folders& folders, std::string& errorText);

}  // namespace ssq
