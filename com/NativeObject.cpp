#include "com/NativeObject.h"

namespace ringbook::com {

// {E2507ADE-2C84-44FA-9EB6-CD8E469314A4}
const IID IID_INativeObject = {
    0xe2507ade, 0x2c84, 0x44fa, {0x9e, 0xb6, 0xcd, 0x8e, 0x46, 0x93, 0x14, 0xa4}};

}  // namespace ringbook::com
