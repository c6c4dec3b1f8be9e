// The drop-down list and the list box. Items count from 0; an index of -1 is no selection.
#pragma once

#include <string>
#include <vector>

#include "ui/Control.h"

namespace tallyrun {

class ComboBox : public Control {
 public:
  // Another item was selected, by the clerk or by SetListIndex.
  Event<> Click;

  void Create(ControlParent& parent, int id);
  void AddItem(const std::string& text);
  int ListIndex() const;
  void SetListIndex(int index);

  int WindowHeightFor(int height) override;

 protected:
  void OnCommand(int code) override;

 private:
  void NoteSelection();

  int selected_ = -1;  // the selection that Click last told of
};

class ListBox : public Control {
 public:
  Event<> DblClick;

  void Create(ControlParent& parent, int id, const std::string& toolTip = "");
  // Replaces all items, painting once; thousands are no wait.
  void SetItems(const std::vector<std::string>& items);
  void RemoveItem(int index);
  int ListIndex() const;
  void SetListIndex(int index);
  // The item's text; "" where there is none.
  std::string ItemText(int index) const;

 protected:
  void OnCommand(int code) override;
};

}  // namespace tallyrun
