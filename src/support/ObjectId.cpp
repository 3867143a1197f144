#include "support/ObjectId.h"

#include <uuid/uuid.h>

Core::String ObjectId::generate()
{
    uuid_t uuid;
    uuid_generate_random(uuid);
    static constexpr char16_t digits[] = u"0123456789abcdef";
    Core::String id("id");
    id.reserve(2 + 2 * static_cast<int>(sizeof uuid));
    for (const unsigned char byte : uuid) {
        id += digits[byte >> 4];
        id += digits[byte & 0x0F];
    }
    return id;
}
