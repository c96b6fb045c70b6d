// In the folder of its source.
