#include "cadhost/dxf/TagEdit.h"

#include <algorithm>

namespace cadhost {

namespace {
// Own tags are those before extended data and outside 102 groups.
template <class F>
void forOwnTags(std::vector<OwnedTag>& tags, F&& f) {
    bool inGroup = false;
    const std::size_t end = ownTagsEnd(tags);
    for (std::size_t i = 1; i < end; ++i) {
        if (tags[i].code == 102) {
            inGroup = !tags[i].value.empty() && tags[i].value.front() == '{';
            continue;
        }
        if (!inGroup && f(i)) return;
    }
}
}  // namespace

std::size_t ownTagsEnd(const std::vector<OwnedTag>& tags) {
    const auto it = std::find_if(tags.begin(), tags.end(), [](const OwnedTag& t) { return t.code == 1001; });
    return static_cast<std::size_t>(it - tags.begin());
}

void setTag(std::vector<OwnedTag>& tags, int code, std::string value) {
    bool done = false;
    forOwnTags(tags, [&](std::size_t i) {
        if (tags[i].code != code) return false;
        tags[i].value = std::move(value);
        return done = true;
    });
    if (!done) appendOwnTags(tags, {{code, std::move(value)}});
}

void removeTags(std::vector<OwnedTag>& tags, int code) {
    std::vector<std::size_t> doomed;
    forOwnTags(tags, [&](std::size_t i) {
        if (tags[i].code == code) doomed.push_back(i);
        return false;
    });
    for (auto it = doomed.rbegin(); it != doomed.rend(); ++it) tags.erase(tags.begin() + static_cast<std::ptrdiff_t>(*it));
}

void appendOwnTags(std::vector<OwnedTag>& tags, const std::vector<OwnedTag>& more) {
    tags.insert(tags.begin() + static_cast<std::ptrdiff_t>(ownTagsEnd(tags)), more.begin(), more.end());
}

}  // namespace cadhost
