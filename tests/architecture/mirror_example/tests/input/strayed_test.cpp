// In the wrong folder.
