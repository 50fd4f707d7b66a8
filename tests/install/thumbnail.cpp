#include "VelmarThumbnail/ThumbnailProvider.h"

// Succeeds when the skin has a thumbnail of 64 points.
int main(int, char** arguments)
{
    VelmarThumbnail::ThumbnailRequest request;
    request.file = arguments[1];
    request.maximumSize = {64, 64};
    bool isAnswered = false;
    VelmarThumbnail::ThumbnailProvider::provideThumbnail(
        request, [&](const auto& reply, const auto&) { isAnswered = reply.has_value(); });
    return isAnswered ? 0 : 1;
}
