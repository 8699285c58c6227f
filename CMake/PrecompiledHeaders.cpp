// Has nothing of its own: the headers that other targets share are compiled beside it.
