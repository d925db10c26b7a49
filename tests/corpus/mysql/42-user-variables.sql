SELECT id FROM jobs WHERE owner = @me AND @level >= min_level
