#pragma once

/// Marks a text that a front end may show in the user's language. The translation tool collects it under
/// `context`; the text itself stays English.
#define LUMBRA_TEXT(context, text) text
