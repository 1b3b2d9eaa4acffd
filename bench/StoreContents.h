// Databases of a given size for the benchmarks.
#pragma once

namespace feedloom {

class TestStore;

// `channels` channels dealt out to `folders` folders, and `posts` posts dealt out to them, two of
// three unread: titles of 40 to 80 bytes, links of 60, descriptions of 400. Folders have the ids
// from 1 on; channel i lies in folder 1 + i % folders.
void FillStore(const TestStore& store, int folders, int channels, int posts);

}  // namespace feedloom
