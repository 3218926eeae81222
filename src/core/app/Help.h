#pragma once

#include <QString>

namespace sidekin {

// F1 on a form: the topic in the help book of the system's locale (the
// localised topic in the Japanese and Simplified Chinese books, the English
// topic otherwise), else the English topic of the English book, else message
// 17324 in a plain box titled "Error".
void showHelpTopic(const QString& localisedTopic, const QString& englishTopic);

}  // namespace sidekin
