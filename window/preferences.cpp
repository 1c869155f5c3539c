// The remembered format choice: one line in a file in the user's preferences folder, the index of the format
// (core/element_file.h). If there is no file, an empty file or a folder of that name, the first format is chosen. An
// index that no format has is an error, and nothing is chosen.
#include "core/save_command.h"
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
    stream->WriteLine(Chr('0' + ChosenFormat(Self())));
    stream->Close();
  }
  Quit(0);
}

}  // namespace celestrix
