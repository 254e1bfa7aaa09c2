#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Controls.h"

class QListWidget;

/// The files of one folder, sorted by name whatever the case of its letters; hidden ones too, folders not.
class FileList : public Control {
public:
    std::function<void(const std::string& Name)> Click;  ///< a file was chosen, by the mouse or by the keys

    void Create(Container& container, const std::string& name, Place place);

    /// Lists the files of `folder` as they are now. Fault 76 if there is no such folder, 75 if it cannot be read.
    void SetFolder(const std::string& folder);

private:
    QListWidget* list_ = nullptr;
    std::vector<std::string> names_;  // row by row
};
