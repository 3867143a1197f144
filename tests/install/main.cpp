#include "foedit.h"

#include <iostream>

int main()
{
    const Core::String text = Core::Format::format("<fo:block>{0}</fo:block>", ObjectId::generate());
    std::cout << text << '\n';
    return text.find("</fo:block>") > 0 ? 0 : 1;
}
