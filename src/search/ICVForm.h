#pragma once

// What the main window needs of a search dialog: configure it for a kind before it is shown,
// and learn afterwards whether it filled SearchResults.
class ICVForm {
  public:
    virtual ~ICVForm() = default;
    // True when the dialog ended without filling SearchResults.
    virtual bool WasCanceled() const = 0;
    virtual void Setup(int kind) = 0;
};
