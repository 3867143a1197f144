#include "support/Encoder.h"

#include <climits>
#include <memory>

#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>

namespace Core {

namespace {

struct ConverterCloser {
    void operator()(UConverter *converter) const noexcept { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterCloser>;

Converter openConverter(const String &encodingName)
{
    const std::string name = encodingName.toUtf8();
    if (name.empty())
        return nullptr;
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(name.c_str(), &status));
    if (U_FAILURE(status))
        return nullptr;
    return converter;
}

} // namespace

std::string Encoder::convertStringToUTF8(const String &text)
{
    return text.toUtf8();
}

String Encoder::convertUTF8ToString(std::string_view bytes)
{
    return String::fromUtf8(bytes);
}

bool Encoder::isKnownEncoding(const String &encodingName)
{
    return openConverter(encodingName) != nullptr;
}

bool Encoder::decode(std::string_view bytes, const String &encodingName, String &text)
{
    Converter converter = openConverter(encodingName);
    if (!converter || bytes.size() > static_cast<std::size_t>(INT_MAX))
        return false;
    const auto sourceLength = static_cast<int32_t>(bytes.size());
    // The first call only measures; the second converts into a buffer of that size.
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = ucnv_toUChars(converter.get(), nullptr, 0, bytes.data(), sourceLength, &status);
    if (status != U_BUFFER_OVERFLOW_ERROR && U_FAILURE(status))
        return false;
    std::u16string units(static_cast<std::size_t>(length), u'\0');
    status = U_ZERO_ERROR;
    ucnv_reset(converter.get());
    ucnv_toUChars(converter.get(), units.data(), length, bytes.data(), sourceLength, &status);
    if (U_FAILURE(status))
        return false;
    text = String(std::move(units));
    return true;
}

bool Encoder::encode(const String &text, const String &encodingName, std::string &bytes)
{
    Converter converter = openConverter(encodingName);
    if (!converter)
        return false;
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_ESCAPE, UCNV_ESCAPE_XML_HEX, nullptr, nullptr,
                          &status);
    if (U_FAILURE(status))
        return false;
    const int32_t sourceLength = text.length();
    const int32_t length = ucnv_fromUChars(converter.get(), nullptr, 0, text.c_str(), sourceLength, &status);
    if (status != U_BUFFER_OVERFLOW_ERROR && U_FAILURE(status))
        return false;
    std::string out(static_cast<std::size_t>(length), '\0');
    status = U_ZERO_ERROR;
    ucnv_reset(converter.get());
    ucnv_fromUChars(converter.get(), out.data(), length, text.c_str(), sourceLength, &status);
    if (U_FAILURE(status))
        return false;
    bytes = std::move(out);
    return true;
}

} // namespace Core
