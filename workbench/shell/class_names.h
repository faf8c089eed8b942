#pragma once

class QWidget;
class Strato;

namespace workbench {

class Session;

/// Asks for another name of a class of the database; it may be empty. Null, or what is no longer there, is told.
void chooseClassName(QWidget& window, Session& session, const Strato* object);

}
