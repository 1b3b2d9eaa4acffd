// What feedloomctl posts --text finds.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ctl/Commands.h"
#include "store/RowKey.h"
#include "store/Rows.h"

namespace feedloom {

class Session;

// What is wrong with `query`, in English; empty when it can be searched for. Both are UTF-8.
std::string QueryFaultWords(std::string_view query);

// Sets `out` to the posts and saved posts, of `row` when there is one, that `options.text` finds,
// in the order asked for. Texts that wait for the index come into it first, where the database can
// be written. Returns false after a failure, which is reported.
bool LoadTextHits(Session& session, const PostsOptions& options, const std::optional<RowKey>& row,
                  std::vector<PostRow>& out);

}  // namespace feedloom
