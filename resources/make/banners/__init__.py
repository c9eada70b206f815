"""One module per advertised product."""
