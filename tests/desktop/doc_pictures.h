// The pictures of the documents, made anew from the program itself.
#pragma once

#include <QString>

namespace merlu::test {

// Writes window.png and pictures/*.png below the folder.
void MakeDocPictures(const QString& folder);

}  // namespace merlu::test
