// The remembered format choice: one line in a file in the user's preferences folder.
//
//   line   written when                      read as
//   "0"    FileFormat(0) (Palm) is chosen    choose FileFormat(0)
//   "1"    it is not                         choose FileFormat(1)
//
// If there is no file, an empty file or a folder of that name, Palm is chosen. Any other number is an error, and
// nothing is chosen.
#include "services/ui/application.h"
#include "services/ui/preferences_folder.h"
#include "window/window1.h"

namespace celestrix {

namespace {

Ref<FolderItem> PreferencesFile() { return PreferencesFolder()->Child("CelestrixSatellite.prefs"_s); }

}  // namespace

void Window1::Event_Open() {
  const Ref<FolderItem> file = PreferencesFile();
  std::int32_t index = 0;
  if (file && file->Exists() && !file->Directory() && file->Length() > 0) {
    const Ref<TextInputStream> stream = file->OpenAsTextFile();
    index = RuntimeCvtReal64ToSInt32(Val(stream->ReadLine()));
    stream->Close();
  }
  ControlNamed<RadioButton>("FileFormat"_s, index)->Value(true);
}

void Window1::Event_Close() {
  if (const Ref<FolderItem> file = PreferencesFile()) {
    file->Delete();
    const Ref<TextOutputStream> stream = file->CreateTextFile();
    stream->WriteLine(ControlNamed<RadioButton>("FileFormat"_s, 0)->Value() ? "0"_s : "1"_s);
    stream->Close();
  }
  Quit(0);
}

}  // namespace celestrix
