#include "SkinKit/Player/PlaylistHTML.h"

#include <cstdio>
#include <vector>

// Prints an exported playlist whose names try to break out of the page.
int main()
{
    const std::vector<SkinKit::PlaylistHTML::Entry> entries{
        {"Overture",                                             60          },
        {"</li></ol><script>document.title = 'broken'</script>", std::nullopt},
        {"Rock & 'Roll' \"Live\" &amp;",                         30.9        },
        {"Café \xFF 🎵",                                         7325        },
    };
    const auto page = SkinKit::PlaylistHTML::document(entries);
    std::fwrite(page.data(), 1, page.size(), stdout);
    return 0;
}
