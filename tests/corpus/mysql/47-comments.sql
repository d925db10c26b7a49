SELECT id, -- the key
name /* of the user */
FROM users # all of them
