#include "VelmarThumbnail/ThumbnailProvider.h"

// Succeeds when the skin has a thumbnail of 64 points.
int main(int, char** arguments)
{
    bool isAnswered = false;
    VelmarThumbnail::ThumbnailProvider::provideThumbnail(
        {
            .file = arguments[1], .maximumSize = {64, 64},
                 .minimumSize = {1,  1 }
    },
        [&](const auto& reply, const auto&) { isAnswered = reply.has_value(); });
    return isAnswered ? 0 : 1;
}
