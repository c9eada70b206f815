"""One module per film, and what films share."""
