#pragma once

#include <QString>
#include <cstdint>

namespace sidekin {

// Texts by number, fetched afresh from the national-language library at each use.

// Prepares the library; tells the operator once when it could not be opened.
void NLSInitialization();
// The text of id, empty when the library has none.
QString GetResourceString(std::int32_t id);
// Asks the library for id into buffer (size characters) and answers the text it wrote.
QString LoadString(std::int32_t handle, std::int32_t id, QString& buffer, std::int32_t size);

// GetResourceString with each token replaced, for message texts.
QString ResourceWithTokens(std::int32_t id, const QString& token, const QString& value);

constexpr int NlsBufferLength = 150;

}  // namespace sidekin
