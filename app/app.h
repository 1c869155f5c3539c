#pragma once

#include "services/ui/application.h"

namespace celestrix {

/// The application object. Everything it does is the framework's default behaviour.
class App : public Application {};

}  // namespace celestrix
