#pragma once

/// Marks a text that a front end may show in the person's language: the translation tool collects it under `context`.
/// The text itself stays English.
#define LUMBRA_TEXT(context, text) text
