#pragma once

#include "designer/DesignPage.h"
#include "designer/ThingModel.h"

class QSplitter;

namespace folvane::designer {

class DesignGrid;

/// The dictionaries of a design, and the entries of the current one.
class DictionariesPage : public DesignPage {
 public:
  explicit DictionariesPage(DesignSession& session);
  ~DictionariesPage() override;

  /// Makes the dictionary of that name the current one, where there is one.
  void ShowDictionary(const QString& name);

 protected:
  void Refresh() override;

 private:
  GridModel* NewDictionaries();
  GridModel* NewEntries();
  /// What is read from the entries below: the dictionary that they are of, from 0, -1 for none.
  int Current() const;

  DesignGrid *dictionaries_, *entries_ = nullptr;
  QSplitter* beside_;
};

}  // namespace folvane::designer
