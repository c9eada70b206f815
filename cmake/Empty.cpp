// A library made of object targets alone still needs a source of its own.
