"""The service's entries in the context menus of Linux file managers: which are offered for an item,
in the user's language, and what happens when one is chosen."""
